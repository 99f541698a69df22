#include <KRCore/KRLogger.h>

#include "KRTest.h"

class tst_KRLogger : public QObject
{
    Q_OBJECT

private slots:
    void logsOneLineAndTellsTheWatcher()
    {
        QStringList lines;
        KRLogger logger;
        logger.setWatcher([&](const QString &line) { lines.append(line); });
        QTest::ignoreMessage(QtInfoMsg, "ACTION:open VALUE:a \"b\"  c%1"); // fails the test when it does not come
        logger.logOSM(QStringLiteral("ACTION:open VALUE:a \"b\"\r\nc%1"));
        QCOMPARE(lines, QStringList{QStringLiteral("ACTION:open VALUE:a \"b\"  c%1")});

        logger.setWatcher({});
        QTest::ignoreMessage(QtInfoMsg, "unwatched");
        logger.logOSM(QStringLiteral("unwatched"));
        QCOMPARE(lines.size(), 1);
    }
};

template class KRTestRegistration<tst_KRLogger>;

#include "tst_KRLogger.moc"
