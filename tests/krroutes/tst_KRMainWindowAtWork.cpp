#include "KRMainWindowTest.h"
#include "KRTestFile.h"

#include <QtWidgets>

#include <atomic>
#include <functional>

/// While it lives, threads that complain about a file wait until somebody lets them go on.
class HeldComplaints
{
public:
    HeldComplaints() : m_previous(qInstallMessageHandler(hold))
    {
        count = 0;
        gate.acquire(gate.available());
    }
    ~HeldComplaints() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY(HeldComplaints)

    static void goOn() { gate.release(100); }

    static inline std::atomic<int> count{0};

private:
    static void hold(QtMsgType /*type*/, const QMessageLogContext &context, const QString & /*text*/)
    {
        if (qstrcmp(context.category, "kr.io") != 0 || QThread::currentThread() == qApp->thread())
            return;
        // Relaxed: an order with the main thread that the program itself does not have would hide races.
        count.fetch_add(1, std::memory_order_relaxed);
        gate.acquire();
    }

    static inline QSemaphore gate{0};

    QtMessageHandler m_previous;
};

class tst_KRMainWindowAtWork : public KRMainWindowTest
{
    Q_OBJECT

private slots:
    void importIsCancelled()
    {
        QTimer::singleShot(0, m_window.get(), [this] { m_window->findChild<QProgressDialog *>()->cancel(); });
        m_window->openFiles({m_tour, m_lake});
        QVERIFY(names().isEmpty());
        QVERIFY(!m_window->isWindowModified());
        m_window->openFiles({m_tour});
        QVERIFY(!names().isEmpty());
    }

    void importKeepsTheWindow()
    {
        const QString document = path("Reise.krroute");
        QVERIFY(save(document));
        bool isAlive = false;
        QTimer::singleShot(0, m_window.get(), [&] {
            isAlive = names().isEmpty();
            m_window->close();
            m_window->openFiles({m_lake});
            m_window->openFiles({document});
        });
        m_window->openFiles({m_tour});
        QVERIFY(isAlive);
        QVERIFY(m_window->isVisible());
        QCOMPARE(names(), QStringLiteral("Radtour um Oldenburg"));
    }

    void longWorkKeepsTheWindow()
    {
        const QString document = path("Reise.krroute");
        QDir tracks(path("Reise.tracks"));
        m_window->openFiles({m_tour, m_lake});
        QVERIFY(save(document));
        const QString both = names();
        const auto loseFiles = [&] {
            for (const QString &name : tracks.entryList({QStringLiteral("*.gps")}, QDir::Files))
                QVERIFY(tracks.rename(name, name + QStringLiteral(".lost")));
        };
        const auto touch = [&](int secondsAhead) {
            QFile file(document);
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(secondsAhead), QFile::FileModificationTime));
        };
        const auto meanwhile = [&](bool isCancelled, int complaints, const std::function<void()> &work) {
            const HeldComplaints held;
            bool isAlive = false;
            QTimer user;
            connect(&user, &QTimer::timeout, m_window.get(), [&] {
                auto *const dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
                if (dialog == nullptr || isAlive)
                    return;
                isAlive = true;
                m_window->close();
                m_window->openFiles({m_lake});
                workspace()->setCroppingOpacity(opacity() + 1); // say in a menu bar that is not in the window
                touch(120);
                if (isCancelled)
                    KRDialogAnswer::press(*dialog, "Abbrechen");
                HeldComplaints::goOn();
            });
            user.start(10);
            work();
            QVERIFY(isAlive && m_window->isVisible() && m_window->isEnabled());
            QCOMPARE(HeldComplaints::count.load(), complaints);
        };
        const auto overwrite = [&] {
            KRDialogAnswer answers({[](QWidget *dialog) { KRDialogAnswer::press(*dialog, "Überschreiben"); }});
            key(Qt::Key_S);
            QVERIFY(answers.isDone());
        };

        // Each file that is missing is complained about twice.
        // Before saving, the document that somebody has replaced is read.
        loseFiles();
        touch(60);
        workspace()->setCroppingOpacity(7);
        const QByteArray old = KRTestFile::content(document);
        meanwhile(true, 2, overwrite);
        QCOMPARE(KRTestFile::content(document), old);
        QVERIFY(m_window->isWindowModified());
        QCOMPARE(tracks.entryList({QStringLiteral("*.gps")}, QDir::Files), QStringList());
        meanwhile(false, 4, overwrite);
        QVERIFY(KRTestFile::content(document) != old);
        QVERIFY(m_window->isWindowModified() && !workspace()->isChangedOutside());
        QCOMPARE(tracks.entryList({QStringLiteral("*.gps")}, QDir::Files).size(), 2);

        loseFiles();
        const auto open = [&](const QList<KRDialogAnswer::Answer> &expected) {
            workspace()->undoStack()->setClean();
            KRDialogAnswer answers(expected);
            m_window->openFiles({document});
            QVERIFY(answers.isDone());
        };
        meanwhile(true, 2, [&] { open({}); });
        meanwhile(false, 4, [&] { open({KRDialogAnswer::button(QMessageBox::Cancel)}); });
        QCOMPARE(names(), both);
        // What is saved into the file that has just been read is there after all, and not lost by the next save.
        const int changed = opacity() + 1;
        meanwhile(false, 8, [&] {
            open({KRDialogAnswer::button(QMessageBox::Save),
                  [](QWidget *dialog) { KRDialogAnswer::press(*dialog, "Überschreiben"); }});
        });
        QCOMPARE(names(), both);
        QCOMPARE(opacity(), changed);
        QVERIFY(!m_window->isWindowModified() && !workspace()->isChangedOutside());

        loseFiles();
        meanwhile(false, 4, [&] {
            open({KRDialogAnswer::button(QMessageBox::Discard), KRDialogAnswer::key(Qt::Key_Escape)});
        });
        QVERIFY(names() != both && !m_window->isWindowModified() && workspace()->isChangedOutside());
    }
};

template class KRTestRegistration<tst_KRMainWindowAtWork>;

#include "tst_KRMainWindowAtWork.moc"
