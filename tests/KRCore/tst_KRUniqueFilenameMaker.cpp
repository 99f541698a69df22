#include <KRCore/KRUniqueFilenameMaker.h>

#include "KRTestRegistry.h"

#include <QtTest>

class tst_KRUniqueFilenameMaker : public QObject
{
    Q_OBJECT

private slots:
    void namesAreGivenOutOnce();
    void takenNamesAreSkipped();
};

namespace {

QString nextName(KRUniqueFilenameMaker *maker, const QDir &dir, const QString &proposal)
{
    return maker->makeUniqueFileNameInSafeContainer(QFileInfo(dir, proposal), {}).fileName();
}

} // namespace

void tst_KRUniqueFilenameMaker::namesAreGivenOutOnce()
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    const QString proposal = QStringLiteral("track.gps");
    KRUniqueFilenameMaker maker;
    QCOMPARE(nextName(&maker, QDir(first.path()), proposal), proposal);
    QCOMPARE(nextName(&maker, QDir(first.path()), proposal), QStringLiteral("track_1.gps"));
    QCOMPARE(nextName(&maker, QDir(first.path() + QStringLiteral("/.")), proposal), QStringLiteral("track_2.gps"));
    QCOMPARE(nextName(&maker, QDir(second.path()), proposal), proposal);
    QCOMPARE(nextName(&maker, QDir(first.path()), QStringLiteral("other")), QStringLiteral("other"));
    QCOMPARE(nextName(&maker, QDir(first.path()), QStringLiteral("other")), QStringLiteral("other_1"));
}

void tst_KRUniqueFilenameMaker::takenNamesAreSkipped()
{
    const QTemporaryDir dir;
    for (const char *name : {"track.gps", "track_1.gps"}) {
        QFile file(dir.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(QFile::link(dir.filePath(QStringLiteral("nowhere")), dir.filePath(QStringLiteral("track_2.gps"))));
    KRUniqueFilenameMaker maker;
    QCOMPARE(nextName(&maker, QDir(dir.path()), QStringLiteral("track.gps")), QStringLiteral("track_3.gps"));
}

static const KRTestRegistration<tst_KRUniqueFilenameMaker> registration;

#include "tst_KRUniqueFilenameMaker.moc"
