#include "KRBenchmarkTracks.h"

#include <KRGeoLocation/KRGPXTrackFile.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <pugixml.hpp>

#include <cstdlib>
#include <cstring>
#include <vector>

// From a file on disk (in the cache of the system) to points in memory. The floor runs over the file with Qt's
// stream reader and converts every number and time, which the import should not take longer than; the peer parses with
// pugixml and converts latitude and longitude only, in a fifth or so of that time.

namespace {

struct Point {
    double latitude;
    double longitude;
    double elevation;
    qint64 time;
};

/// A generated file that is gone after the benchmark.
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

/// Runs @p read, which returns the number of points, and checks that it met all of them.
template <typename Reader>
void measure(benchmark::State &state, const Reader &read)
{
    const GpxFile file(int(state.range(0)));
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
BENCHMARK(importGpx)->Apply(sizes);

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

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
