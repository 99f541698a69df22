#pragma once

#include <QElapsedTimer>

class QSqlDatabase;

/**
 * Keeps the queries of a database of unknown origin short.
 *
 * What looks like a table may be a view, and a view may compute for ever or make values of any size. SQLite asks the
 * guard again and again whether to go on. Lives as long as the connection, in one thread.
 */
class KRSqliteGuard
{
public:
    KRSqliteGuard() = default;
    Q_DISABLE_COPY(KRSqliteGuard)

    /// Of an open connection. Without effect when Qt's driver brings an SQLite of its own.
    void protect(const QSqlDatabase &database);
    /// To be called before each query: it may take KRInputLimits::tileQueryMs from now.
    void startQuery() { m_timer.start(); }
    /// Whether a query took too long. Those that follow then end at once.
    bool hasInterrupted() const { return m_hasInterrupted; }

private:
    static int isOverdue(void *guard);

    QElapsedTimer m_timer;
    bool m_hasInterrupted = false;
};
