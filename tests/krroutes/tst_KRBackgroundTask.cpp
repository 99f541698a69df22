#include "KRBackgroundTask.h"
#include "KRTest.h"

#include <QtWidgets>

class tst_KRBackgroundTask : public QObject
{
    Q_OBJECT

private slots:
    void isCancelledByItsButton()
    {
        QWidget window;
        QLineEdit edit(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        edit.setFocus();

        bool isInputKept = false;
        QTimer user;
        connect(&user, &QTimer::timeout, &window, [&] {
            if (QWidget *const dialog = QApplication::activeModalWidget()) {
                isInputKept = !edit.isEnabled();
                QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
            }
        });
        user.start(10);
        QSemaphore stops;
        bool isStopped = false;
        const bool isDone = KRBackgroundTask::run(
            &window, QStringLiteral("…"), [&] { isStopped = stops.tryAcquire(1, 30000); }, [&] { stops.release(); });
        QVERIFY(isStopped && !isDone && isInputKept);
        QVERIFY(edit.isEnabled());
        QVERIFY(window.focusWidget() == &edit);
        user.stop();
        QVERIFY(KRBackgroundTask::run(
            &window, QString(), [] {}, [] {}));
    }
};

static const KRTestRegistration<tst_KRBackgroundTask> registration;

#include "tst_KRBackgroundTask.moc"
