#include "KRLogger.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(krAction, "kr.action")

void KRLogger::logOSM(const QString &text) const
{
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\r'), QLatin1Char(' '));
    qCInfo(krAction).noquote() << line;
    if (m_watcher)
        m_watcher(line);
}
