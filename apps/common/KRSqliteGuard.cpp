#include "KRSqliteGuard.h"

#include <KRCore/KRInputLimits.h>

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QVariant>

#include <cstring>

#include <sqlite3.h>

namespace {

constexpr int stepsPerQuestion = 10000; // of SQLite's machine, far below a millisecond

bool usesOurLibrary(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    return query.exec(QStringLiteral("SELECT sqlite_source_id()")) && query.next()
           && query.value(0).toByteArray() == sqlite3_sourceid();
}

} // namespace

void KRSqliteGuard::protect(const QSqlDatabase &database)
{
    const QVariant handle = database.driver()->handle();
    if (std::strcmp(handle.typeName(), "sqlite3*") != 0 || !usesOurLibrary(database))
        return;
    sqlite3 *const connection = *static_cast<sqlite3 *const *>(handle.constData());
    sqlite3_progress_handler(connection, stepsPerQuestion, isOverdue, this);
    // A larger value is an error of the query, before there is memory for it.
    sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, KRInputLimits::tileRowBytes);
    startQuery();
}

int KRSqliteGuard::isOverdue(void *guard)
{
    auto *const self = static_cast<KRSqliteGuard *>(guard);
    self->m_hasInterrupted = self->m_hasInterrupted || self->m_timer.hasExpired(KRInputLimits::tileQueryMs);
    return self->m_hasInterrupted ? 1 : 0;
}
