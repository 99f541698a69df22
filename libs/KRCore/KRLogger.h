#pragma once

#include "KRCoreExport.h"
#include "KRSingleton.h"

#include <QString>

#include <functional>

/**
 * The log of what users do: one line per action in the logging category "kr.action".
 *
 * A host that keeps such a log itself, or a test, may watch the lines. GUI thread only.
 */
class KRCORE_EXPORT KRLogger : public KRSingleton<KRLogger>
{
public:
    using Watcher = std::function<void(const QString &line)>;

    /// Logs @p text, such as "ACTION:useFactory VALUE:*.gpx", as one line; line breaks in it become blanks.
    void logOSM(const QString &text) const;

    /// Gets every line in addition to the log; an empty function ends that.
    void setWatcher(const Watcher &watcher) { m_watcher = watcher; }

private:
    Watcher m_watcher;
};
