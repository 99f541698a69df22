#include "KRErrorHistory.h"

#include "KRMessageText.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(krIo, "kr.io")

QString KRErrorHistory::Entry::toString() const
{
    QString place = fileName;
    if (line > 0)
        place += QStringLiteral(":%1").arg(line);
    if (line > 0 && column > 0)
        place += QStringLiteral(":%1").arg(column);
    return KRMessageText::printable(place + QStringLiteral(": ") + reason);
}

void KRErrorHistory::report(KRErrorHistory *history, const Entry &entry)
{
    qCWarning(krIo).noquote() << entry.toString();
    if (history)
        history->m_entries.append(entry);
}

void KRErrorHistory::report(KRErrorHistory *history, const QString &fileName, const QString &reason)
{
    Entry entry;
    entry.fileName = fileName;
    entry.reason = reason;
    report(history, entry);
}
