#pragma once

#include <QString>

class KRErrorHistory;

/**
 * What krrender tells its user, on the standard error output.
 *
 * On a terminal its progress stands in one line that is written over again and again, and is gone before anything else
 * is told.
 */
class KRConsole
{
public:
    /// Progress is shown only where neither holds.
    KRConsole(bool isQuiet, bool isVerbose);

    void print(const QString &line);
    /// A line with the program's name in front.
    void complain(const QString &problem);
    /// The same for each of them.
    void complain(const KRErrorHistory &problems);
    /// A line that the quiet leave out.
    void say(const QString &message);

    void showProgress(const QString &message);
    void clearProgress();

private:
    bool m_isQuiet;
    bool m_showsProgress;
    bool m_isProgressShown = false;
};
