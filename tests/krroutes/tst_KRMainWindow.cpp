#include <KRMainWindow.h>
#include <KRTestRegistry.h>

#include <QtTest>

class tst_KRMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void closesByKey();
};

static const KRTestRegistration<tst_KRMainWindow> registration;

void tst_KRMainWindow::closesByKey()
{
    KRMainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!window.isVisible());
}

#include "tst_KRMainWindow.moc"
