#include <KRCore/KRBlinkAnimation.h>

#include "KRTest.h"

class tst_KRBlinkAnimation : public QObject
{
    Q_OBJECT

private slots:
    void endsInTheNormalLook()
    {
        KRBlinkAnimation animation;
        QSignalSpy blinks(&animation, &KRBlinkAnimation::blink);
        animation.stop();
        QVERIFY(blinks.isEmpty());
        for (const bool isStopped : {false, true}) {
            blinks.clear();
            animation.start();
            QCOMPARE(blinks.count(), 1); // a click is answered at once
            QVERIFY(blinks.first().first().toInt() != 0);
            if (isStopped)
                animation.stop();
            QTRY_VERIFY_WITH_TIMEOUT(!animation.isRunning(), 3000);
            QVERIFY(isStopped || blinks.count() > 2);
            QCOMPARE(blinks.last().first().toInt(), 0);
        }
        const int count = blinks.count();
        animation.stop();
        QCOMPARE(blinks.count(), count);
    }

    void receiverMayStartItAgain()
    {
        KRBlinkAnimation animation;
        int rounds = 0;
        connect(&animation, &KRBlinkAnimation::blink, this, [&](int /*state*/) {
            if (!animation.isRunning() && ++rounds == 1)
                animation.start();
        });
        animation.start();
        QTRY_COMPARE_WITH_TIMEOUT(rounds, 2, 5000);
        QVERIFY(!animation.isRunning());
    }
};

template class KRTestRegistration<tst_KRBlinkAnimation>;

#include "tst_KRBlinkAnimation.moc"
