#pragma once

#include <QElapsedTimer>

class QSqlDatabase;
struct sqlite3;

/**
 * Keeps a database of unknown origin from using up time and memory.
 *
 * What looks like a table may be a view or have columns that are computed, and those may compute for ever, make values
 * of any size, or multiply while they are only being compiled. So the guard counts the processor time of all queries
 * (waiting for a slow disk is no harm), leaves only such functions as views of tiles need, each of which is done at
 * once, and bounds what SQLite compiles and the memory that it takes. Lives as long as the connection, in one thread.
 */
class KRSqliteGuard
{
public:
    KRSqliteGuard() = default;
    Q_DISABLE_COPY(KRSqliteGuard)

    /// Of an open connection, before its first query. From now until seal() it may take KRInputLimits::tileOpeningMs.
    /// Queries with recursion or with other functions fail, with SQLITE_AUTH.
    /// Without effect when Qt's driver brings an SQLite of its own.
    void protect(const QSqlDatabase &database);
    /// From now on nothing is compiled any more: queries fail after a change of the schema. What they take beyond
    /// @p freeMs each adds up to KRInputLimits::tileQueriesMs at most, less a tenth of the time that
    /// passes between them: who looks at a map for hours may use a file without an index, too.
    void seal(int freeMs);

    void startQuery();
    void endQuery();
    /// Whether the time is used up. Queries that follow then end at once.
    bool hasInterrupted() const { return m_hasInterrupted; }
    /// Whether that made a query fail.
    bool hasSchemaChanged() const { return m_hasSchemaChanged; }

private:
    static int isOverdue(void *guard);
    static int mayCompile(void *guard, int action, const char *, const char *, const char *, const char *);
    qint64 spentMicroseconds() const;

    qint64 m_start = 0; ///< microseconds of processor time, as the others
    qint64 m_spent = 0; ///< by the queries before
    QElapsedTimer m_pause; ///< since the last query
    qint64 m_free = 0; ///< for each query
    qint64 m_budget = 0;
    bool m_hasInterrupted = false;
    bool m_isSealed = false;
    bool m_hasSchemaChanged = false;
};
