#include "KRSqliteGuard.h"

#include <KRCore/KRInputLimits.h>

#include <QSet>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <cstring>
#include <ctime>

#include <sqlite3.h>

namespace {

/// Of SQLite's machine. Nearly all take less than a microsecond, but those on the largest values some milliseconds.
constexpr int stepsPerQuestion = 50;

qint64 processorMicroseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1000000 + time.tv_nsec / 1000;
}

bool usesOurLibrary(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    return query.exec(QStringLiteral("SELECT sqlite_source_id()")) && query.next()
           && query.value(0).toByteArray() == sqlite3_sourceid();
}

void limitCompiler(sqlite3 *connection)
{
    // A larger value is an error of the query, before there is memory for it.
    sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, KRInputLimits::tileRowBytes);
    // What is compiled for a tile of an ordinary view has some fifty steps; its text has some hundred bytes.
    sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, 20000);
    sqlite3_limit(connection, SQLITE_LIMIT_VDBE_OP, 10000);
    sqlite3_limit(connection, SQLITE_LIMIT_COLUMN, 500);
    sqlite3_limit(connection, SQLITE_LIMIT_EXPR_DEPTH, 100);
    sqlite3_limit(connection, SQLITE_LIMIT_COMPOUND_SELECT, 50);
    sqlite3_limit(connection, SQLITE_LIMIT_ATTACHED, 0);

    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    // Otherwise new values for a query may have it compiled again.
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_QPSG, 1, nullptr);
    // No virtual tables: each is a program of its own, with files of its own.
    sqlite3_drop_modules(connection, nullptr);
}

void refuse(sqlite3_context *context, int /*count*/, sqlite3_value ** /*values*/)
{
    sqlite3_result_error_code(context, SQLITE_AUTH);
}

/// Leaves those whose time is at most in proportion to their values. An authorizer would not do: it is not asked about
/// columns of a table that are computed.
void takeFunctionsAway(sqlite3 *connection, const QSqlDatabase &database)
{
    const QSet<QByteArray> harmless{"abs",    "coalesce", "ifnull", "iif",   "length", "lower",     "max",    "min",
                                    "nullif", "pow",      "power",  "round", "substr", "substring", "typeof", "upper"};
    QSet<QByteArray> names;
    QSqlQuery query(database);
    query.setForwardOnly(true);
    query.exec(QStringLiteral("PRAGMA function_list"));
    while (query.next())
        names.insert(query.value(0).toByteArray());
    query.finish(); // SQLite changes none as long as any query runs
    constexpr int anyCount = -1;
    constexpr int traits = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS; // so that tables with them are read
    for (const QByteArray &name : std::as_const(names.subtract(harmless)))
        sqlite3_create_function(connection, name.constData(), anyCount, traits, nullptr, refuse, nullptr, nullptr);
}

} // namespace

void KRSqliteGuard::protect(const QSqlDatabase &database)
{
    const QVariant handle = database.driver()->handle();
    if (std::strcmp(handle.typeName(), "sqlite3*") != 0 || !usesOurLibrary(database))
        return;
    m_budget = qint64(KRInputLimits::tileOpeningMs) * 1000;
    startQuery();
    sqlite3 *const connection = *static_cast<sqlite3 *const *>(handle.constData());
    sqlite3_progress_handler(connection, stepsPerQuestion, isOverdue, this);
    // Of all connections of the program together: SQLite has none for a single one.
    sqlite3_hard_heap_limit64(KRInputLimits::tileDatabasesBytes);
    limitCompiler(connection);
    takeFunctionsAway(connection, database);
    QSqlQuery query(database);
    query.exec(QStringLiteral("PRAGMA temp_store = MEMORY")); // sorting must not fill the disk
    query.exec(QStringLiteral("PRAGMA automatic_index = OFF")); // it would hold all tiles
    query.exec(QStringLiteral("PRAGMA cache_size = -2000")); // in KiB; the file may ask for any size
    query.finish();
    sqlite3_set_authorizer(connection, mayCompile, this);
}

void KRSqliteGuard::seal(int freeMs)
{
    m_isSealed = true;
    m_spent = 0;
    m_free = qint64(freeMs) * 1000;
    m_budget = qint64(KRInputLimits::tileQueriesMs) * 1000;
}

void KRSqliteGuard::startQuery()
{
    constexpr qint64 forgottenShare = 10; // one in so many
    const qint64 pause = m_pause.isValid() ? m_pause.nsecsElapsed() / 1000 : 0;
    m_spent = std::max<qint64>(m_spent - pause / forgottenShare, 0);
    m_start = processorMicroseconds();
}

void KRSqliteGuard::endQuery()
{
    m_spent = spentMicroseconds();
    m_pause.start();
}

int KRSqliteGuard::isOverdue(void *guard)
{
    auto *const self = static_cast<KRSqliteGuard *>(guard);
    self->m_hasInterrupted = self->m_hasInterrupted || self->spentMicroseconds() > self->m_budget;
    return self->m_hasInterrupted ? 1 : 0;
}

int KRSqliteGuard::mayCompile(void *guard, int action, const char * /*first*/, const char * /*second*/,
                              const char * /*database*/, const char * /*view*/)
{
    auto *const self = static_cast<KRSqliteGuard *>(guard);
    self->m_hasSchemaChanged = self->m_isSealed;
    const bool isReading = action == SQLITE_SELECT || action == SQLITE_READ || action == SQLITE_FUNCTION;
    return isReading && !self->m_isSealed ? SQLITE_OK : SQLITE_DENY;
}

qint64 KRSqliteGuard::spentMicroseconds() const
{
    return m_spent + std::max<qint64>(processorMicroseconds() - m_start - m_free, 0);
}
