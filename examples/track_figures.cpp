// Prints length, climb and duration of the tracks of a GPX file: track_figures FILE.gpx

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrackFile.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

/// Kilometres, without the ways between segments.
static double lengthKm(const KRGPXTrack &track)
{
    double length = 0.0;
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (const KRGPXTrackSegment &segment : segments) {
        const KRGeoPositionSpan positions = segment.positions();
        for (int i = 1; i < positions.count; ++i)
            length += positions.at(i - 1).distance(positions.at(i));
    }
    return length;
}

/// Metres. A climb counts once it is higher than five metres, which is about what receivers waver.
static int climbMetres(const KRGPXTrack &track)
{
    int climb = 0;
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (const KRGPXTrackSegment &segment : segments) {
        int low = segment.isValid() ? segment.trackPoint(0).elevation() : 0;
        const QList<KRGPXTrackPoint> points = segment.trackPoints();
        for (const KRGPXTrackPoint &point : points) {
            const int elevation = point.elevation();
            if (elevation > low + 5) {
                climb += elevation - low;
                low = elevation;
            } else {
                low = qMin(low, elevation);
            }
        }
    }
    return climb;
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    KRErrorHistory history;
    const KRGPXTrackFile file(QFileInfo(QCoreApplication::arguments().value(1)), &history);
    for (const KRErrorHistory::Entry &entry : history.entries())
        std::fprintf(stderr, "%s\n", qUtf8Printable(entry.toString()));
    const QList<KRGPXTrack> tracks = file.tracks();
    for (const KRGPXTrack &track : tracks) {
        const KRRange<QDateTime> times = track.timeFrame();
        std::printf("%s: %d points, %.1f km, %d m up", qUtf8Printable(track.name()), track.countPoints(),
                    lengthKm(track), climbMetres(track));
        if (times.minimum().isValid() && times.isValid())
            std::printf(", %lld min", times.minimum().secsTo(times.maximum()) / 60);
        std::printf("\n");
    }
    return file.isValid() ? 0 : 1;
}
