#include <KRKmlImport.h>
#include <KRKmlWriter.h>
#include <KRRouteDocument.h>

#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>
#include <KRGeoLocation/KRGPXTrackSelectionComparisonResult.h>
#include <KRGeoLocation/KRTrackSelectionFactoryKmlFile.h>
#include <KRXML/KRXMLBuilder.h>

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <random>

// Thousands of small tracks, all of one size and, where a name is not needed, of one name: whatever is to be found
// among them looks alike at first. Nothing may take more than a little over ten times as long for ten times as many.

namespace {

constexpr int pointsPerTrack = 10;
constexpr int styleCount = 8;

QString coordinates(std::mt19937 &random)
{
    std::uniform_real_distribution<double> anywhere(0.0, 6.0);
    std::uniform_real_distribution<double> nearby(-0.01, 0.01);
    double longitude = 6.0 + anywhere(random);
    double latitude = 48.0 + anywhere(random);
    QString text;
    for (int i = 0; i < pointsPerTrack; ++i) {
        longitude += nearby(random);
        latitude += nearby(random);
        text += QStringLiteral("%1,%2 ").arg(longitude, 0, 'f', 6).arg(latitude, 0, 'f', 6);
    }
    return text;
}

/// Lines, points and areas by turns, with styles of which each has one for when the pointer is over it.
QString kmlDocument(int count)
{
    std::mt19937 random(20240611);
    QString kml = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                 "<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>\n");
    for (int i = 0; i < styleCount; ++i) {
        kml +=
            QStringLiteral("<Style id=\"s%1\"><LineStyle><color>ff00%2ff</color><width>%1</width></LineStyle></Style>"
                           "<StyleMap id=\"m%1\"><Pair><key>normal</key><styleUrl>#s%1</styleUrl></Pair>"
                           "<Pair><key>highlight</key><styleUrl>#s0</styleUrl></Pair></StyleMap>\n")
                .arg(i)
                .arg(i * 30, 2, 16, QLatin1Char('0'));
    }
    for (int i = 0; i < count; ++i) {
        const QString text = coordinates(random);
        kml += QStringLiteral("<Placemark><name>%1</name><styleUrl>#m%2</styleUrl>").arg(i).arg(i % styleCount);
        if (i % 3 == 0)
            kml += QStringLiteral("<LineString><coordinates>%1</coordinates></LineString>").arg(text);
        else if (i % 3 == 1)
            kml += QStringLiteral("<Point><coordinates>%1</coordinates></Point>")
                       .arg(text.section(QLatin1Char(' '), 0, 0));
        else
            kml += QStringLiteral("<Polygon><outerBoundaryIs><LinearRing><coordinates>%1</coordinates></LinearRing>"
                                  "</outerBoundaryIs></Polygon>")
                       .arg(text);
        kml += QLatin1String("</Placemark>\n");
    }
    return kml + QLatin1String("</Document></kml>\n");
}

KRGPXTrackSelection selectionOf(const benchmark::State &state)
{
    std::mt19937 random(20240612);
    KRGPXTrackSelection selection;
    for (int i = 0; i < int(state.range(0)); ++i)
        selection.addTrack(
            KRGPXTrack::decodeKml(QStringLiteral("track"), QString(), coordinates(random), LineStringTrackShape));
    return selection;
}

bool isComplete(benchmark::State &state, int count)
{
    if (count == state.range(0))
        return true;
    state.SkipWithError("not all tracks are there");
    return false;
}

void counts(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}

} // namespace

static void importKml(benchmark::State &state)
{
    const QString kml = kmlDocument(int(state.range(0)));
    for (auto _ : state) {
        const auto tracks = KRTrackSelectionFactoryKmlFile().decode(kml, QStringLiteral("many.kml"));
        if (!isComplete(state, tracks.size()))
            break;
    }
}
BENCHMARK(importKml)->Apply(counts);

static void importKmlCompletely(benchmark::State &state)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("many.kml")));
    if (file.open(QIODevice::WriteOnly))
        file.write(kmlDocument(int(state.range(0))).toUtf8());
    file.close();
    for (auto _ : state) {
        KRKmlImport import{QFileInfo(file)};
        import.read();
        if (!isComplete(state, import.configuredTracks().size()))
            break;
    }
}
BENCHMARK(importKmlCompletely)->Apply(counts);

static void writeKml(benchmark::State &state)
{
    const KRGPXTrackSelection selection = selectionOf(state);
    for (auto _ : state) {
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        benchmark::DoNotOptimize(KRKmlWriter::write(selection.tracks(), QStringLiteral("many"), &file));
    }
}
BENCHMARK(writeKml)->Apply(counts);

static void writeAndReadSelection(benchmark::State &state)
{
    const KRGPXTrackSelection selection = selectionOf(state);
    for (auto _ : state) {
        QDomDocument document;
        QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("tracks"));
        selection.toXml(root, QDir(QString()));
        QDomDocument parsed;
        parsed.setContent(KRXMLBuilder::toText(document));
        if (!isComplete(state, KRGPXTrackSelection(parsed.documentElement(), QDir(QString())).count()))
            break;
    }
}
BENCHMARK(writeAndReadSelection)->Apply(counts);

static void compareSelections(benchmark::State &state)
{
    const KRGPXTrackSelection selection = selectionOf(state);
    const KRGPXTrackSelection other = selectionOf(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(selection == other && !selection.compare(other).trackCountChanges());
}
BENCHMARK(compareSelections)->Apply(counts);

static void findFilesOfTracks(benchmark::State &state)
{
    const KRGPXConfiguredTrackList tracks = selectionOf(state).tracks();
    const QDir folder(QStringLiteral("/nowhere"));
    for (auto _ : state) {
        KRGPXTrackFileRegistry registry;
        int found = 0;
        for (const KRGPXConfiguredTrack &track : tracks)
            registry.registerFile(KRGPXTrackFileRegistryKey(track.track(), folder), QStringLiteral("track.gps"));
        for (const KRGPXConfiguredTrack &track : tracks)
            found += registry.fileName(KRGPXTrackFileRegistryKey(track.track(), folder)).isEmpty() ? 0 : 1;
        if (!isComplete(state, found))
            break;
    }
}
BENCHMARK(findFilesOfTracks)->Apply(counts);

static void saveDocument(benchmark::State &state)
{
    KRRouteDocument document;
    document.setSelection(selectionOf(state));
    for (auto _ : state) {
        const QTemporaryDir folder;
        if (!document.save(QFileInfo(folder.filePath(QStringLiteral("many.krroute"))), nullptr))
            state.SkipWithError("not saved");
    }
}
BENCHMARK(saveDocument)->Apply(counts)->Iterations(1);

static void openDocument(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QFileInfo file(folder.filePath(QStringLiteral("many.krroute")));
    KRRouteDocument document;
    document.setSelection(selectionOf(state));
    document.save(file, nullptr);
    for (auto _ : state) {
        KRRouteDocument opened;
        if (!opened.load(file, nullptr) || !isComplete(state, opened.selection().count()))
            break;
    }
}
BENCHMARK(openDocument)->Apply(counts)->Iterations(1);

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
