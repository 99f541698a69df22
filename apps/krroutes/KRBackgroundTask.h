#pragma once

#include <QCoreApplication>

#include <functional>

class QWidget;

/**
 * Runs what takes long in a thread of its own, while the window stays alive and a progress dialog offers to cancel it.
 *
 * Where the system starts no further thread it runs in the thread of the window, which stands still meanwhile, as it
 * does for a moment in any case: nothing of what is done by then is seen.
 */
class KRBackgroundTask
{
    Q_DECLARE_TR_FUNCTIONS(KRBackgroundTask)

public:
    /**
     * Returns when the work is done; false when the user has cancelled it. Until then @p window takes no input; the
     * dialog stays.
     *
     * @param text what is being done, for the progress dialog, which shows after a moment
     * @param stop called in the GUI thread when the user cancels; may let the work end early
     */
    static bool run(QWidget *window, const QString &text, const std::function<void()> &work,
                    const std::function<void()> &stop);
};
