#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include "KRRecordingTranslator.h"
#include "KRTemporarySettings.h"
#include "KRTest.h"
#include "KRTestFolder.h"
#include "KRTestTrack.h"

#include <KRCore/KRLogger.h>
#include <KRGUIWidgets/KRRequestDiskAccess.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>
#include <KRGeoLocation/KRTrackSelectionFactoryGPXFile.h>

using KRTestTrack::names;

namespace {

const QByteArray threeTracks("<gpx><trk><name>a</name><trkseg><trkpt lat='53' lon='8'/><trkpt lat='54' lon='9'/>"
                             "</trkseg></trk><trk><name>b</name><trkseg><trkpt lat='53' lon='8'/></trkseg></trk>"
                             "<trk><name>c</name><trkseg/></trk></gpx>");

/// Makes one track named after the file out of every "*.abc"; reads none.
class AbcImporter : public KRTrackSelectionFactoryAbstract
{
public:
    bool supportsFile(const QUrl &url) const override { return url.fileName().endsWith(QStringLiteral(".abc")); }
    QStringList supportedFileFormats() const override { return {QStringLiteral("*.abc"), QStringLiteral("*.a%1c")}; }
    KRGPXConfiguredTrackList createConfiguredTrackList(const QUrl &url) const override
    {
        const KRGPXTrack track(url.fileName(), QString(), {}, LineStringTrackShape);
        return KRGPXConfiguredTrackList(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration()));
    }
};

} // namespace

class tst_KRTrackSelectionFactory : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_log.clear();
        KRLogger::instance()->setWatcher([this](const QString &line) { m_log.append(line); });
    }

    void cleanup()
    {
        KRLogger::instance()->setWatcher({});
        KRRequestDiskAccess::instance()->setOpenFileNameFunction({});
    }

    void supportsFile()
    {
        const QUrl remote(QStringLiteral("http://example.org/a.gpx"));
        for (const QUrl &url : {fileUrl("a.b.GPX"), fileUrl("a.gpx.bak"), remote}) {
            const bool expected = url.fileName() == QLatin1String("a.b.GPX");
            QCOMPARE(KRTrackSelectionFactory().supportsFile(url), expected);
            QCOMPARE(KRTrackSelectionFactoryGPXFile().supportsFile(url), expected);
        }
    }

    void readsGpxFilesAsTheUserWantsNewTracks()
    {
        const KRTemporarySettings temporarySettings;
        KRGPXTrackConfiguration wanted;
        wanted.setLineColor(Qt::blue);
        KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(wanted);
        const KRGPXConfiguredTrackList tracks =
            KRTrackSelectionFactory().createConfiguredTrackList(writeFile(QStringLiteral("a.gpx"), threeTracks));
        KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());

        QCOMPARE(names(tracks), QStringLiteral("a b c"));
        QCOMPARE(tracks.at(2).configuration().lineColor(), QColor(Qt::blue));
        // Only the shape is found for each track anew.
        QCOMPARE(tracks.at(0).configuration().trackShape().value(), LineStringTrackShape);
        QCOMPARE(tracks.at(1).configuration().trackShape().value(), PointTrackShape);
    }

    void readsSeveralFiles()
    {
        KRTrackSelectionFactory factory;
        factory.addFactory(new AbcImporter);
        const QList<QUrl> urls{fileUrl("z.abc"), fileUrl("track.txt"), writeFile(QStringLiteral("a.gpx"), threeTracks),
                               writeFile(QStringLiteral("empty.gpx"), "<gpx/>"), fileUrl("y.abc")};
        QCOMPARE(names(factory.createConfiguredTrackList(urls)), QStringLiteral("z.abc a b c y.abc"));
        const QString abc = QStringLiteral("ACTION:useFactory VALUE:*.abc,*.a%1c");
        const QString gpx = QStringLiteral("ACTION:useFactory VALUE:*.gpx");
        QCOMPARE(m_log, QStringList({abc, gpx, gpx, abc})); // nothing where there is no importer
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("missing\\.gpx")));
        QVERIFY(!factory.createConfiguredTrackList(fileUrl("missing.gpx")).isValid());
        QCOMPARE(m_log.size(), 5); // before it is read
    }

    void severalFilesGoThroughTheSingleFile()
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
        const QList<QUrl> urls{fileUrl("a.txt"), fileUrl("b.gpx")};
        QCOMPARE(names(OtherFactory().createConfiguredTrackList(urls)), QStringLiteral("a.txt b.gpx"));
    }

    void ownsItsImportersAndAsksGpxFirst()
    {
        class GreedyImporter : public AbcImporter
        {
        public:
            explicit GreedyImporter(bool *isDestroyed) : m_isDestroyed(isDestroyed) { }
            ~GreedyImporter() override { *m_isDestroyed = true; }
            bool supportsFile(const QUrl & /*url*/) const override { return true; }

        private:
            bool *m_isDestroyed;
        };
        bool isDestroyed = false;
        {
            KRTrackSelectionFactory factory;
            factory.addFactory(new GreedyImporter(&isDestroyed));
            QCOMPARE(factory.createConfiguredTrackList(writeFile(QStringLiteral("a.gpx"), threeTracks)).count(), 3);
            QCOMPARE(names(factory.createConfiguredTrackList(fileUrl("a.xyz"))), QStringLiteral("a.xyz"));
            QCOMPARE(factory.supportedFileFormats().first(), QStringLiteral("*.gpx"));
            QCOMPARE(factory.supportedFileFormats().last(), QStringLiteral("*.a%1c"));
            QVERIFY(!isDestroyed);
        }
        QVERIFY(isDestroyed);
    }

    void asksTheUser()
    {
        QString answer = writeFile(QStringLiteral("a %1 ä.gpx"), threeTracks).toLocalFile();
        QStringList asked;
        KRRequestDiskAccess::instance()->setOpenFileNameFunction(
            [&](KRDiskAccessMode mode, const QString &title, const QString &directory, const QString &filter) {
                asked = QStringList{QString::number(mode), title, directory, filter};
                return answer;
            });
        const KRRecordingTranslator translator;
        QCOMPARE(KRGPXConfiguredTrackList::fromFile().count(), 3);
        QVERIFY(translator.requests().contains(QStringLiteral("QObject|Datei für Route öffnen|")));
        QCOMPARE(asked,
                 QStringList({QStringLiteral("1"), QStringLiteral("Datei für Route öffnen"), QString(),
                              KRTrackSelectionFactory::instance()->supportedFileFormats().join(QLatin1Char(' '))}));
        answer.clear(); // cancelled
        QVERIFY(!KRTrackSelectionFactory().askUserReadFile().isValid());
        QCOMPARE(m_log.size(), 1);
    }

private:
    QUrl fileUrl(const char *name) const { return QUrl::fromLocalFile(m_folder.path(QLatin1String(name))); }
    QUrl writeFile(const QString &name, const QByteArray &content) const
    {
        return QUrl::fromLocalFile(m_folder.write(name, content).filePath());
    }

    const KRTestFolder m_folder;
    QStringList m_log;
};

template class KRTestRegistration<tst_KRTrackSelectionFactory>;

#include "tst_KRTrackSelectionFactory.moc"
