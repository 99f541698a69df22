#include "KRBackgroundTask.h"
#include "KRDialogAnswer.h"
#include "KRTest.h"

#include <QtWidgets>

#include <pthread.h>

namespace {

const auto nothing = [] {};

/// While it lives the system starts no further thread, for want of memory for its stack.
class NoThreads
{
public:
    NoThreads()
    {
        pthread_attr_t attributes;
        pthread_getattr_default_np(&attributes);
        pthread_attr_getstacksize(&attributes, &m_stackBytes);
        pthread_attr_destroy(&attributes);
        setStackBytes(std::size_t(1) << 50);
    }
    ~NoThreads() { setStackBytes(m_stackBytes); }
    Q_DISABLE_COPY(NoThreads)

private:
    static void setStackBytes(std::size_t bytes)
    {
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, bytes);
        pthread_setattr_default_np(&attributes);
        pthread_attr_destroy(&attributes);
    }

    std::size_t m_stackBytes = 0;
};

} // namespace

class tst_KRBackgroundTask : public QObject
{
    Q_OBJECT

private slots:
    void isCancelled()
    {
        const KRTestTable<std::function<void(QProgressDialog *)>> table{
            {"by its button", [](auto *dialog) { KRDialogAnswer::press(*dialog, "Abbrechen"); }},
            {"by the key, and again",
             [](auto *dialog) {
                 QTest::keyClick(dialog, Qt::Key_Escape);
                 QTest::keyClick(dialog, Qt::Key_Escape);
             }},
            {"by closing it", [](auto *dialog) { dialog->close(); }},
        };
        table.forEach([](const std::function<void(QProgressDialog *)> &cancel) {
            QWidget window;
            QLineEdit edit(&window);
            window.show();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            edit.setFocus();

            bool isInputKept = false;
            QString textAfterwards;
            QTimer user;
            QSemaphore stops;
            connect(&user, &QTimer::timeout, &window, [&] {
                auto *const dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
                if (dialog == nullptr)
                    return;
                user.stop();
                isInputKept = !edit.isEnabled();
                cancel(dialog);
                // The work still goes on.
                QTest::qWait(50);
                textAfterwards = dialog->isVisible() ? dialog->labelText() : QString();
                stops.release();
            });
            user.start(10);
            int stopCount = 0;
            const bool isDone = KRBackgroundTask::run(
                &window, QStringLiteral("…"), [&] { stops.acquire(); }, [&] { ++stopCount; });
            QVERIFY(!isDone && isInputKept && stopCount == 1);
            QCOMPARE(textAfterwards, QStringLiteral("Wird abgebrochen …"));
            QVERIFY(edit.isEnabled());
            QVERIFY(window.focusWidget() == &edit);
        });
    }

    void runsAlsoWithoutAThread()
    {
        QWidget window;
        for (const bool hasThreads : {true, false}) {
            const std::unique_ptr<NoThreads> noThreads = hasThreads ? nullptr : std::make_unique<NoThreads>();
            QThread *worker = nullptr;
            QVERIFY(KRBackgroundTask::run(
                &window, QString(), [&] { worker = QThread::currentThread(); }, nothing));
            QVERIFY(worker != nullptr);
            QCOMPARE(worker == QThread::currentThread(), !hasThreads);
            QVERIFY(window.isEnabled());
        }
    }
};

template class KRTestRegistration<tst_KRBackgroundTask>;

#include "tst_KRBackgroundTask.moc"
