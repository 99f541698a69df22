#include "KRBenchmarkTracks.h"

#include <KRGeoLocation/KRGPXTrackFile.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <pugixml.hpp>

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

// From a file on disk (in the cache of the system) to points in memory. The floor runs over the file with Qt's
// stream reader and converts every number and time; the peer parses with pugixml and converts latitude and longitude
// only. The import should not take longer than the peer. Whole processes, from start to end with all their memory,
// are measured as well: each runs this program once more.

namespace {

struct Point {
    double latitude;
    double longitude;
    double elevation;
    qint64 time;
};

/// A generated file that is gone at the end of the program.
class GpxFile
{
public:
    explicit GpxFile(int points)
    {
        QFile file(m_directory.filePath(QStringLiteral("walk.gpx")));
        if (file.open(QIODevice::WriteOnly))
            file.write(KRBenchmarkTracks::gpxDocument(points));
        m_name = file.fileName();
    }

    QString name() const { return m_name; }
    qint64 size() const { return QFileInfo(m_name).size(); }

private:
    QTemporaryDir m_directory;
    QString m_name;
};

/// Made once for all the times that a benchmark is called.
const GpxFile &gpxFile(int points)
{
    static std::map<int, GpxFile> files;
    return files.try_emplace(points, points).first->second;
}

/// Runs @p read, which returns the number of points, and checks that it met all of them.
template <typename Reader>
void measure(benchmark::State &state, const Reader &read)
{
    const GpxFile &file = gpxFile(int(state.range(0)));
    for (auto _ : state) {
        if (read(file.name()) != state.range(0)) {
            state.SkipWithError("not all points were read");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * file.size());
}

qint64 streamedPoints(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    std::vector<Point> points;
    Point point{};
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (xml.name() == QLatin1String("trkpt")) {
                const QXmlStreamAttributes attributes = xml.attributes();
                point.latitude = attributes.value(QLatin1String("lat")).toDouble();
                point.longitude = attributes.value(QLatin1String("lon")).toDouble();
            } else if (xml.name() == QLatin1String("ele")) {
                point.elevation = xml.readElementText().toDouble();
            } else if (xml.name() == QLatin1String("time")) {
                point.time = QDateTime::fromString(xml.readElementText(), Qt::ISODate).toMSecsSinceEpoch();
            }
        } else if (token == QXmlStreamReader::EndElement && xml.name() == QLatin1String("trkpt")) {
            points.push_back(point);
        }
    }
    benchmark::DoNotOptimize(points.data());
    return qint64(points.size());
}

qint64 parsedPoints(const QString &fileName)
{
    pugi::xml_document document;
    document.load_file(QFile::encodeName(fileName).constData());
    std::vector<Point> points;
    for (const pugi::xml_node &track : document.child("gpx").children("trk"))
        for (const pugi::xml_node &segment : track.children("trkseg"))
            for (const pugi::xml_node &point : segment.children("trkpt"))
                points.push_back({std::strtod(point.attribute("lat").value(), nullptr),
                                  std::strtod(point.attribute("lon").value(), nullptr), 0.0, 0});
    benchmark::DoNotOptimize(points.data());
    return qint64(points.size());
}

qint64 importedPoints(const QString &fileName)
{
    qint64 count = 0;
    const QList<KRGPXTrack> tracks = KRGPXTrackFile(QFileInfo(fileName)).tracks();
    for (const KRGPXTrack &track : tracks)
        for (const KRGPXTrackSegment &segment : track.segments())
            count += segment.count();
    return count;
}

using Reader = qint64 (*)(const QString &fileName);

const char *const importWay = "import";
const char *const pugixmlWay = "pugixml";

/// What a process of its own does: prints its points, milliseconds of processor time and kilobytes at its peak.
int readAndReport(const char *way, const QString &fileName)
{
    const Reader read = qstrcmp(way, importWay) == 0 ? importedPoints : parsedPoints;
    const qint64 points = read(fileName);
    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    const auto milliseconds = [](const struct timeval &time) {
        return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
    };
    // Not from the usage, which counts the memory of who has started the process too.
    QFile status(QStringLiteral("/proc/self/status"));
    double peak = 0.0;
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith("VmHWM:"))
                peak = line.simplified().split(' ').value(1).toDouble();
        }
    }
    std::printf("%lld %f %f\n", points, milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime), peak);
    return 0;
}

void measureProcess(benchmark::State &state, const char *way)
{
    const GpxFile &file = gpxFile(int(state.range(0)));
    double peak = 0.0;
    for (auto _ : state) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(way), file.name()});
        process.waitForFinished(-1);
        const QList<QByteArray> figures = process.readAllStandardOutput().simplified().split(' ');
        if (figures.value(0).toLongLong() != state.range(0)) {
            state.SkipWithError("not all points were read");
            break;
        }
        state.SetIterationTime(figures.value(1).toDouble() / 1e3);
        peak = figures.value(2).toDouble() * 1024.0;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["peakBytesPerPoint"] = peak / double(state.range(0));
}

void sizesOfProcesses(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(KRBenchmarkTracks::largest)
        ->Arg(3 * KRBenchmarkTracks::largest)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1);
}

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->RangeMultiplier(10)
        ->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

} // namespace

static void importGpx(benchmark::State &state)
{
    measure(state, importedPoints);
}
BENCHMARK(importGpx)->Apply(sizes)->Arg(3 * KRBenchmarkTracks::largest);

static void floorStreamReader(benchmark::State &state)
{
    measure(state, streamedPoints);
}
BENCHMARK(floorStreamReader)->Apply(sizes);

static void peerPugixml(benchmark::State &state)
{
    measure(state, parsedPoints);
}
BENCHMARK(peerPugixml)->Apply(sizes);

static void importGpxProcess(benchmark::State &state)
{
    measureProcess(state, importWay);
}
BENCHMARK(importGpxProcess)->Apply(sizesOfProcesses);

static void peerPugixmlProcess(benchmark::State &state)
{
    measureProcess(state, pugixmlWay);
}
BENCHMARK(peerPugixmlProcess)->Apply(sizesOfProcesses);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 3 && (qstrcmp(argv[1], importWay) == 0 || qstrcmp(argv[1], pugixmlWay) == 0))
        return readAndReport(argv[1], QFile::decodeName(argv[2]));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
