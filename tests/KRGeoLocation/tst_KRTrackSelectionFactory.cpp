#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include "KRRecordingTranslator.h"
#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"

#include <KRCore/KRLogger.h>
#include <KRGUIWidgets/KRRequestDiskAccess.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>
#include <KRGeoLocation/KRTrackSelectionFactoryGPXFile.h>

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

namespace {

const QByteArray threeTracks("<gpx><trk><name>a</name><trkseg><trkpt lat='53' lon='8'/><trkpt lat='54' lon='9'/>"
                             "</trkseg></trk><trk><name>b</name><trkseg><trkpt lat='53' lon='8'/></trkseg></trk>"
                             "<trk><name>c</name><trkseg/></trk></gpx>");

/// Makes one track named after the file out of every "*.abc"; deletes no file and reads none.
class AbcImporter : public KRTrackSelectionFactoryAbstract
{
public:
    explicit AbcImporter(bool *destroyed = nullptr) : m_destroyed(destroyed) { }
    ~AbcImporter() override
    {
        if (m_destroyed)
            *m_destroyed = true;
    }

    bool supportsFile(const QUrl &url) const override { return url.fileName().endsWith(QStringLiteral(".abc")); }
    QStringList supportedFileFormats() const override { return {QStringLiteral("*.abc"), QStringLiteral("*.a%1c")}; }
    KRGPXConfiguredTrackList createConfiguredTrackList(const QUrl &url) const override
    {
        const KRGPXTrack track(url.fileName(), QString(), {}, LineStringTrackShape);
        return KRGPXConfiguredTrackList(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration()));
    }

private:
    bool *m_destroyed;
};

QStringList namesOf(const KRGPXConfiguredTrackList &list)
{
    QStringList names;
    for (const KRGPXConfiguredTrack &track : list)
        names.append(track.name());
    return names;
}

} // namespace

class tst_KRTrackSelectionFactory : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void supportsFile_data();
    void supportsFile();
    void readsGpxFilesAsTheUserWantsNewTracks();
    void logsWhatItUses();
    void logsBeforeReading();
    void readsSeveralFiles();
    void severalFilesGoThroughTheSingleFile();
    void asksGpxFirst();
    void ownsItsImporters();
    void asksTheUser();
    void userCancels();

private:
    QUrl fileUrl(const QString &name) const { return QUrl::fromLocalFile(m_dir->filePath(name)); }
    QUrl writeFile(const QString &name, const QByteArray &content) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QStringList m_log;
};

void tst_KRTrackSelectionFactory::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_log.clear();
    KRLogger::instance()->setWatcher([this](const QString &line) { m_log.append(line); });
}

void tst_KRTrackSelectionFactory::cleanup()
{
    KRLogger::instance()->setWatcher({});
    KRRequestDiskAccess::instance()->setOpenFileNameFunction({});
}

QUrl tst_KRTrackSelectionFactory::writeFile(const QString &name, const QByteArray &content) const
{
    QFile file(m_dir->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qUtf8Printable(file.fileName()));
    return QUrl::fromLocalFile(file.fileName());
}

void tst_KRTrackSelectionFactory::supportsFile_data()
{
    QTest::addColumn<QUrl>("url");
    QTest::addColumn<bool>("expected");
    QTest::newRow("upper case") << QUrl::fromLocalFile(QStringLiteral("/nowhere/a.GPX")) << true;
    QTest::newRow("mixed case") << QUrl::fromLocalFile(QStringLiteral("/nowhere/a.b.Gpx")) << true;
    QTest::newRow("suffix not at the end") << QUrl::fromLocalFile(QStringLiteral("/nowhere/a.gpx.bak")) << false;
    QTest::newRow("other suffix") << QUrl::fromLocalFile(QStringLiteral("/nowhere/a.txt")) << false;
    QTest::newRow("no suffix") << QUrl::fromLocalFile(QStringLiteral("/nowhere/gpx")) << false;
    QTest::newRow("not a local file") << QUrl(QStringLiteral("http://example.org/a.gpx")) << false;
    QTest::newRow("no file") << QUrl() << false;
}

void tst_KRTrackSelectionFactory::supportsFile()
{
    QFETCH(QUrl, url);
    QTEST(KRTrackSelectionFactory().supportsFile(url), "expected");
    QTEST(KRTrackSelectionFactoryGPXFile().supportsFile(url), "expected");
}

void tst_KRTrackSelectionFactory::readsGpxFilesAsTheUserWantsNewTracks()
{
    const KRTemporarySettings temporarySettings;
    KRGPXTrackConfiguration wanted;
    wanted.setLineColor(Qt::blue);
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(wanted);
    const KRGPXConfiguredTrackList tracks =
        KRTrackSelectionFactory().createConfiguredTrackList(writeFile(QStringLiteral("a.gpx"), threeTracks));
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());

    QCOMPARE(namesOf(tracks), QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QCOMPARE(tracks.at(2).configuration().lineColor(), QColor(Qt::blue));
    // Only the shape is found for each track anew.
    QCOMPARE(tracks.at(0).configuration().trackShape().value(), LineStringTrackShape);
    QCOMPARE(tracks.at(1).configuration().trackShape().value(), PointTrackShape);
}

void tst_KRTrackSelectionFactory::logsWhatItUses()
{
    KRTrackSelectionFactory factory;
    factory.addFactory(new AbcImporter);
    QVERIFY(factory.createConfiguredTrackList(fileUrl(QStringLiteral("a.abc"))).isValid());
    QCOMPARE(m_log, QStringList{QStringLiteral("ACTION:useFactory VALUE:*.abc,*.a%1c")});
    QVERIFY(!factory.createConfiguredTrackList(fileUrl(QStringLiteral("track.txt"))).isValid());
    QCOMPARE(m_log.size(), 1);
}

void tst_KRTrackSelectionFactory::logsBeforeReading()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("missing\\.gpx")));
    QVERIFY(!KRTrackSelectionFactory().createConfiguredTrackList(fileUrl(QStringLiteral("missing.gpx"))).isValid());
    QCOMPARE(m_log, QStringList{QStringLiteral("ACTION:useFactory VALUE:*.gpx")});
}

void tst_KRTrackSelectionFactory::readsSeveralFiles()
{
    KRTrackSelectionFactory factory;
    factory.addFactory(new AbcImporter);
    const QList<QUrl> urls{fileUrl(QStringLiteral("z.abc")), fileUrl(QStringLiteral("track.txt")),
                           writeFile(QStringLiteral("a.gpx"), threeTracks),
                           writeFile(QStringLiteral("empty.gpx"), "<gpx/>"), fileUrl(QStringLiteral("y.abc"))};
    QCOMPARE(namesOf(factory.createConfiguredTrackList(urls)).join(QLatin1Char(' ')),
             QStringLiteral("z.abc a b c y.abc"));
    QCOMPARE(m_log.size(), 4);
    QVERIFY(!factory.createConfiguredTrackList(QList<QUrl>()).isValid());
}

void tst_KRTrackSelectionFactory::severalFilesGoThroughTheSingleFile()
{
    class OtherFactory : public KRTrackSelectionFactory
    {
    public:
        using KRTrackSelectionFactory::createConfiguredTrackList;
        KRGPXConfiguredTrackList createConfiguredTrackList(const QUrl &url) const override
        {
            return AbcImporter().createConfiguredTrackList(url);
        }
    };
    const QList<QUrl> urls{fileUrl(QStringLiteral("a.txt")), fileUrl(QStringLiteral("b.gpx"))};
    QCOMPARE(namesOf(OtherFactory().createConfiguredTrackList(urls)),
             QStringList({QStringLiteral("a.txt"), QStringLiteral("b.gpx")}));
}

void tst_KRTrackSelectionFactory::asksGpxFirst()
{
    class GreedyImporter : public AbcImporter
    {
    public:
        bool supportsFile(const QUrl & /*url*/) const override { return true; }
    };
    KRTrackSelectionFactory factory;
    factory.addFactory(new GreedyImporter);
    QCOMPARE(factory.createConfiguredTrackList(writeFile(QStringLiteral("a.gpx"), threeTracks)).count(), 3);
    QCOMPARE(namesOf(factory.createConfiguredTrackList(fileUrl(QStringLiteral("a.xyz")))),
             QStringList{QStringLiteral("a.xyz")});
    QCOMPARE(factory.supportedFileFormats().first(), QStringLiteral("*.gpx"));
    QCOMPARE(factory.supportedFileFormats().last(), QStringLiteral("*.a%1c"));
}

void tst_KRTrackSelectionFactory::ownsItsImporters()
{
    bool destroyed = false;
    {
        KRTrackSelectionFactory factory;
        factory.addFactory(new AbcImporter(&destroyed));
        QVERIFY(!destroyed);
    }
    QVERIFY(destroyed);
}

void tst_KRTrackSelectionFactory::asksTheUser()
{
    const QUrl url = writeFile(QStringLiteral("a %1 ä.gpx"), threeTracks);
    QStringList asked;
    KRRequestDiskAccess::instance()->setOpenFileNameFunction(
        [&](KRDiskAccessMode mode, const QString &title, const QString &directory, const QString &filter) {
            asked = QStringList{QString::number(mode), title, directory, filter};
            return url.toLocalFile();
        });
    const KRRecordingTranslator translator;
    QCOMPARE(KRGPXConfiguredTrackList::fromFile().count(), 3);
    QVERIFY(translator.requests().contains(QStringLiteral("QObject|Datei für Route öffnen|")));
    QCOMPARE(asked, QStringList({QStringLiteral("1"), QStringLiteral("Datei für Route öffnen"), QString(),
                                 KRTrackSelectionFactory::instance()->supportedFileFormats().join(QLatin1Char(' '))}));
}

void tst_KRTrackSelectionFactory::userCancels()
{
    KRRequestDiskAccess::instance()->setOpenFileNameFunction(
        [](KRDiskAccessMode, const QString &, const QString &, const QString &) { return QString(); });
    QVERIFY(!KRTrackSelectionFactory().askUserReadFile().isValid());
    QVERIFY(m_log.isEmpty());
}

static const KRTestRegistration<tst_KRTrackSelectionFactory> registration;

#include "tst_KRTrackSelectionFactory.moc"
