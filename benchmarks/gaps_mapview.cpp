// How long the map window keeps its thread busy at most while somebody drags and zooms the map, and how soon the
// picture is complete again. Arguments: the number of tracks, the points of each.

#include "KRBenchmarkTracks.h"

#include <KRBaseMapGround.h>
#include <KRMapView.h>

#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMouseEvent>
#include <QTextStream>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <functional>
#include <vector>

namespace {

constexpr int secondsOfEach = 6;
constexpr int framesPerSecond = 60;

KRGPXTrackSelection tracks(int trackCount, int pointCount)
{
    const auto walk = KRBenchmarkTracks::randomWalk(trackCount * pointCount);
    KRGPXConfiguredTrackList list;
    KRGPXTrackConfiguration look = KRGPXTrackConfiguration::defaultValue();
    look.setLineWidth(4.0);
    for (int track = 0; track < trackCount; ++track) {
        KRGPXTrackSegment segment;
        for (int i = track * pointCount; i < (track + 1) * pointCount; ++i)
            segment.append(walk[std::size_t(i)].first, walk[std::size_t(i)].second, 0, QDateTime(), QString());
        const QString name = QStringLiteral("Track %1").arg(track);
        look.setLineColor(QColor::fromHsv(track * 37 % 360, 200, 200));
        list.append(KRGPXConfiguredTrack(KRGPXTrack(name, QString(), {segment}, LineStringTrackShape), look));
    }
    return KRGPXTrackSelection(list);
}

/// Milliseconds of processor time that the calling thread has taken.
double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/**
 * The times between two passes of the event loop, in milliseconds: by the clock, and of the processor, which other
 * programs do not change.
 */
class GapMeter
{
public:
    GapMeter()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_clock.start();
        m_processorTime = processorTime();
        m_timer.start(1);
    }

    QString report()
    {
        return QStringLiteral("longest gap %1, of the processor %2; %3 passes")
            .arg(summary(&m_gaps), summary(&m_processorGaps))
            .arg(m_gaps.size());
    }

private:
    static QString summary(std::vector<double> *gaps)
    {
        std::sort(gaps->begin(), gaps->end());
        const double all = double(gaps->size() - 1);
        return QStringLiteral("%1 ms (99 %: %2)")
            .arg(gaps->back(), 0, 'f', 1)
            .arg((*gaps)[std::size_t(0.99 * all)], 0, 'f', 1);
    }

    void tick()
    {
        m_gaps.push_back(double(m_clock.nsecsElapsed()) / 1e6);
        m_clock.start();
        const double now = processorTime();
        m_processorGaps.push_back(now - m_processorTime);
        m_processorTime = now;
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    double m_processorTime;
    std::vector<double> m_gaps;
    std::vector<double> m_processorGaps;
};

void waitUntilDrawn(const KRMapView &view)
{
    while (!view.isUpToDate())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
}

void sendMouse(KRMapView *view, QEvent::Type type, const QPointF &pixel, Qt::MouseButton button, Qt::MouseButtons held)
{
    QMouseEvent event(type, pixel, view->mapToGlobal(pixel.toPoint()), button, held, Qt::NoModifier);
    QApplication::sendEvent(view, &event);
}

void sendMove(KRMapView *view, const QPointF &pixel)
{
    sendMouse(view, QEvent::MouseMove, pixel, Qt::NoButton, Qt::LeftButton);
}

void sendWheel(KRMapView *view, int turn)
{
    const QPoint pixel = view->rect().center();
    QWheelEvent event(pixel, view->mapToGlobal(pixel), QPoint(), QPoint(0, turn), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &event);
}

void measure(KRMapView *view, const QString &title, const std::function<void(int)> &step)
{
    QEventLoop loop;
    QTimer frames;
    frames.setTimerType(Qt::PreciseTimer);
    int frame = 0;
    QElapsedTimer clock;
    clock.start();
    QObject::connect(&frames, &QTimer::timeout, &frames, [&] {
        step(frame++);
        if (clock.elapsed() > 1000 * secondsOfEach)
            loop.quit();
    });
    GapMeter meter;
    frames.start(1000 / framesPerSecond);
    loop.exec();
    frames.stop();
    clock.start();
    waitUntilDrawn(*view);
    QTextStream(stdout) << title << ": " << frame << " steps, " << meter.report() << "; complete after "
                        << clock.elapsed() << " ms\n";
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const int trackCount = std::max(1, arguments.value(1, QStringLiteral("1")).toInt());
    const int pointCount = std::max(2, arguments.value(2, QStringLiteral("1000000")).toInt());

    KRBaseMapGround ground;
    KRMapView view;
    view.resize(1600, 1000);
    view.setGround(&ground);
    view.setTracks(tracks(trackCount, pointCount));
    view.showAll();
    QElapsedTimer clock;
    clock.start();
    view.show();
    waitUntilDrawn(view);
    QTextStream(stdout) << trackCount << " tracks of " << pointCount << " points, first picture after "
                        << clock.elapsed() << " ms\n";

    sendMouse(&view, QEvent::MouseButtonPress, QPointF(800, 500), Qt::LeftButton, Qt::LeftButton);
    measure(&view, QStringLiteral("dragging"), [&](int frame) {
        sendMove(&view, QPointF(800.0 + 500.0 * std::sin(frame * 0.03), 500.0 + 300.0 * std::sin(frame * 0.02)));
    });
    sendMouse(&view, QEvent::MouseButtonRelease, QPointF(800, 500), Qt::LeftButton, Qt::NoButton);
    measure(&view, QStringLiteral("zooming"), [&](int frame) { sendWheel(&view, frame / 60 % 2 == 0 ? 30 : -30); });
    measure(&view, QStringLiteral("pointing"), [&](int frame) {
        sendMove(&view, QPointF(800.0 + 700.0 * std::sin(frame * 0.07), 500.0 + 400.0 * std::sin(frame * 0.05)));
    });
    view.setGround(nullptr);
    return 0;
}
