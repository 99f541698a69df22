#include <KRGeoLocation/KRGPXLineOutline.h>

#include "KRTest.h"

#include <QImage>
#include <QPainter>
#include <QPen>

#include <cmath>
#include <cstdlib>
#include <random>

namespace {

constexpr double tolerance = 0.05;

QPainterPath polyline(const QVector<QPointF> &points)
{
    QPainterPath path(points.first());
    for (const QPointF &point : points)
        path.lineTo(point);
    return path;
}

/// A walk whose turns are up to so many radians, closed or not.
QPainterPath walk(unsigned seed, int steps, double stepPx, double turn, bool isClosed)
{
    std::mt19937 engine(seed);
    const auto between = [&engine](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(engine);
    };
    QPointF place(150.0, 120.0);
    double heading = 0.0;
    QPainterPath path(place);
    for (int i = 0; i < steps; ++i) {
        heading += between(-turn, turn);
        place += stepPx * between(0.1, 1.0) * QPointF(std::cos(heading), std::sin(heading));
        path.lineTo(place);
    }
    if (isClosed)
        path.closeSubpath();
    return path;
}

QImage filled(const QPainterPath &outline)
{
    QImage image(300, 240, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline, Qt::black);
    return image;
}

/// The greatest difference of a pixel's brightness, 0 ... 255.
int largestDifference(const QImage &a, const QImage &b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            largest = std::max(largest, std::abs(a.constScanLine(y)[x] - b.constScanLine(y)[x]));
    return largest;
}

} // namespace

class tst_KRGPXLineOutline : public QObject
{
    Q_OBJECT

private slots:
    void enclosesWhatThePenPaints()
    {
        const KRTestTable<QPainterPath, double> table{
            {"a line", polyline({{20.0, 30.0}, {200.0, 90.0}}), 12.0},
            {"there and back", polyline({{20.0, 30.0}, {200.0, 90.0}, {20.0, 30.0}}), 12.0},
            {"back on the way", polyline({{20.0, 100.0}, {200.0, 100.0}, {80.0, 100.0}, {240.0, 100.0}}), 30.0},
            {"a corner", polyline({{50.0, 200.0}, {150.0, 30.0}, {160.0, 200.0}}), 40.0},
            {"a ring", polyline({{50.0, 50.0}, {250.0, 50.0}, {250.0, 200.0}, {50.0, 200.0}, {50.0, 50.0}}), 20.0},
            {"two lines that cross",
             [] {
                 QPainterPath path = polyline({{20.0, 20.0}, {250.0, 200.0}});
                 path.addPath(polyline({{20.0, 200.0}, {250.0, 20.0}}));
                 return path;
             }(),
             20.0},
            {"slight turns", walk(1, 300, 8.0, 0.3, false), 6.0},
            {"sharp turns", walk(2, 200, 30.0, 3.1, false), 10.0},
            {"turns tighter than the pen", walk(3, 400, 3.0, 2.0, true), 25.0},
            {"a hair", walk(4, 300, 20.0, 1.5, true), 0.8},
        };
        table.forEach([](const QPainterPath &lines, double width) {
            QPainterPathStroker stroker(QPen(Qt::black, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            stroker.setCurveThreshold(0.05);
            const QImage expected = filled(stroker.createStroke(lines));
            const QImage actual = filled(KRGPXLineOutline(width, tolerance).of(lines));
            const int difference = largestDifference(expected, actual);
            QVERIFY2(difference <= 60, QByteArray::number(difference).constData());
            QVERIFY(largestDifference(actual, filled(QPainterPath())) > 100);
        });
    }

    void slightTurnsTakeNoCurves()
    {
        const QPainterPath lines = walk(5, 1000, 8.0, 0.3, false);
        const int ends = 1 + 2 * (1 + 2 * 3);
        QCOMPARE(KRGPXLineOutline(6.0, tolerance).of(lines).elementCount(), 2 * 999 + ends);
    }
};

template class KRTestRegistration<tst_KRGPXLineOutline>;

#include "tst_KRGPXLineOutline.moc"
