#include <KRCore/KRUniqueFilenameMaker.h>

#include "KRTest.h"
#include "KRTestFolder.h"

namespace {

QString nextName(KRUniqueFilenameMaker *maker, const QDir &dir, const QString &proposal)
{
    return maker->makeUniqueFileNameInSafeContainer(QFileInfo(dir, proposal), {}).fileName();
}

} // namespace

class tst_KRUniqueFilenameMaker : public QObject
{
    Q_OBJECT

private slots:
    void namesAreGivenOutOnce()
    {
        const KRTestFolder first;
        const KRTestFolder second;
        const QString proposal = QStringLiteral("track.gps");
        KRUniqueFilenameMaker maker;
        QCOMPARE(nextName(&maker, first.dir(), proposal), proposal);
        QCOMPARE(nextName(&maker, first.dir(), proposal), QStringLiteral("track_1.gps"));
        QCOMPARE(nextName(&maker, QDir(first.path(QStringLiteral("."))), proposal), QStringLiteral("track_2.gps"));
        QCOMPARE(nextName(&maker, second.dir(), proposal), proposal);
        QCOMPARE(nextName(&maker, first.dir(), QStringLiteral("other")), QStringLiteral("other"));
        QCOMPARE(nextName(&maker, first.dir(), QStringLiteral("other")), QStringLiteral("other_1"));
    }

    void takenNamesAreSkipped()
    {
        const KRTestFolder folder;
        folder.write(QStringLiteral("track.gps"), {});
        folder.write(QStringLiteral("track_1.gps"), {});
        QVERIFY(QFile::link(folder.path(QStringLiteral("nowhere")), folder.path(QStringLiteral("track_2.gps"))));
        KRUniqueFilenameMaker maker;
        QCOMPARE(nextName(&maker, folder.dir(), QStringLiteral("track.gps")), QStringLiteral("track_3.gps"));
    }
};

template class KRTestRegistration<tst_KRUniqueFilenameMaker>;

#include "tst_KRUniqueFilenameMaker.moc"
