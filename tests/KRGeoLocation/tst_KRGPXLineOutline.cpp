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

double distance(const QPointF &place, const QLineF &line)
{
    const QPointF way = line.p2() - line.p1();
    const double square = QPointF::dotProduct(way, way);
    const double part = square > 0.0 ? QPointF::dotProduct(place - line.p1(), way) / square : 0.0;
    return QLineF(place, line.pointAt(qBound(0.0, part, 1.0))).length();
}

/// All places that are so near to one of the lines; a soft edge is as wide as a pixel.
QImage nearTo(const QPainterPath &lines, double radius)
{
    QImage image = filled(QPainterPath());
    for (int i = 1; i < lines.elementCount(); ++i) {
        if (!lines.elementAt(i).isLineTo())
            continue;
        const QLineF line(lines.elementAt(i - 1), lines.elementAt(i));
        const QRect around = QRectF(line.p1(), line.p2()).normalized().toAlignedRect();
        const int reach = int(radius) + 2;
        const QRect sight = around.adjusted(-reach, -reach, reach, reach) & image.rect();
        for (int y = sight.top(); y <= sight.bottom(); ++y) {
            for (int x = sight.left(); x <= sight.right(); ++x) {
                const double outside = distance(QPointF(x + 0.5, y + 0.5), line) - radius + 0.5;
                uchar &pixel = image.scanLine(y)[x];
                pixel = std::min(pixel, uchar(qBound(0.0, outside, 1.0) * 255.0));
            }
        }
    }
    return image;
}

/// How many pixels differ by more than a third of what there is between black and white.
int differentPixels(const QImage &a, const QImage &b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += std::abs(a.constScanLine(y)[x] - b.constScanLine(y)[x]) > 85 ? 1 : 0;
    return count;
}

} // namespace

class tst_KRGPXLineOutline : public QObject
{
    Q_OBJECT

private slots:
    void enclosesWhatThePenPaints()
    {
        const KRTestTable<QPainterPath, double, int> table{
            {"a line", polyline({{20.0, 30.0}, {200.0, 90.0}}), 12.0, 25},
            // Where edges lie upon each other the painter counts both.
            {"there and back", polyline({{20.0, 30.0}, {200.0, 90.0}, {20.0, 30.0}}), 12.0, 150},
            {"back on the way", polyline({{20.0, 100.0}, {200.0, 100.0}, {80.0, 100.0}, {240.0, 100.0}}), 30.0, 25},
            {"a corner", polyline({{50.0, 200.0}, {150.0, 30.0}, {160.0, 200.0}}), 40.0, 25},
            {"a ring", polyline({{50.0, 50.0}, {250.0, 50.0}, {250.0, 200.0}, {50.0, 200.0}, {50.0, 50.0}}), 20.0, 25},
            {"two lines that cross",
             [] {
                 QPainterPath path = polyline({{20.0, 20.0}, {250.0, 200.0}});
                 path.addPath(polyline({{20.0, 200.0}, {250.0, 20.0}}));
                 return path;
             }(),
             20.0, 25},
            {"slight turns", walk(1, 300, 8.0, 0.3, false), 6.0, 25},
            {"sharp turns", walk(2, 200, 30.0, 3.1, false), 10.0, 25},
            {"turns tighter than the pen", walk(3, 400, 3.0, 2.0, true), 25.0, 25},
            {"thin", walk(4, 300, 20.0, 1.5, true), 2.0, 25},
        };
        table.forEach([](const QPainterPath &lines, double width, int mostDifferent) {
            const QImage expected = nearTo(lines, width / 2.0);
            const QImage actual = filled(KRGPXLineOutline(width, tolerance).of(lines));
            const int different = differentPixels(expected, actual);
            QVERIFY2(different <= mostDifferent, QByteArray::number(different).constData());
            QVERIFY(differentPixels(actual, filled(QPainterPath())) > 300);
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
