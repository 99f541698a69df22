#include <KRGeoLocation/KRGPXPathPainter.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QPainter>
#include <QPainterPath>
#include <QPicture>
#include <QtTest>

#include <cmath>
#include <functional>
#include <random>

namespace {

using Setup = std::function<void(QPainter *)>;

constexpr double pi = 3.141592653589793;

void setNothing(QPainter *) { }

/// Wanders over the edges of an image of 400 x 300 and over its own way.
QPainterPath walk(int steps, double stepPx, double turn)
{
    std::mt19937 random(4711);
    std::normal_distribution<double> turning(0.0, turn);
    QPainterPath path(QPointF(200.0, 150.0));
    QPointF place = path.currentPosition();
    double heading = 0.0;
    for (int i = 0; i < steps; ++i) {
        heading += turning(random);
        if (!QRectF(-40.0, -40.0, 480.0, 380.0).contains(place))
            heading = std::atan2(150.0 - place.y(), 200.0 - place.x());
        place += stepPx * QPointF(std::cos(heading), std::sin(heading));
        path.lineTo(place);
    }
    return path;
}

/// Whole pixels, as hosts project to them.
QPainterPath wholePixels(QPainterPath path)
{
    for (int i = 0; i < path.elementCount(); ++i)
        path.setElementPositionAt(i, std::trunc(path.elementAt(i).x), std::trunc(path.elementAt(i).y));
    return path;
}

QPainterPath zigzag(const QPointF &stroke, const QPointF &step, int count)
{
    QPainterPath path(QPointF(-10.0, -20.0));
    for (int i = 1; i <= count; ++i)
        path.lineTo(path.elementAt(0) + step * i + (i % 2 == 1 ? stroke : QPointF()));
    return path;
}

/// Stars round one centre that cross themselves, the inner ones as enclaves.
QPainterPath stars(int corners, int count)
{
    QPainterPath path;
    for (int star = 0; star < count; ++star) {
        QPolygonF polygon;
        const double radius = 190.0 / (star + 1);
        for (int i = 0; i < corners; ++i)
            polygon.append(QPointF(210.0, 140.0)
                           + radius * QPointF(std::cos(i * 2.6 * pi), std::sin(i * 2.6 * pi + star)));
        path.addPolygon(polygon);
        path.closeSubpath();
    }
    return path;
}

/// An outline of many corners that starts and ends in the middle of one of its sides.
QPainterPath closedCoast(bool isClosed, int corners = 700)
{
    QPainterPath path(QPointF(192.0, 20.0));
    for (int i = 0; i <= corners; ++i) {
        const double angle = (i / double(corners) - 0.25) * 2.0 * pi;
        const double radius = 120.0 + 9.0 * std::sin(angle * 40.0);
        path.lineTo(QPointF(200.0, 150.0) + radius * QPointF(1.3 * std::cos(angle), std::sin(angle)));
    }
    if (isClosed)
        path.closeSubpath();
    return path;
}

QPainterPath linesApart()
{
    QPainterPath path;
    for (int i = 0; i < 40; ++i) {
        path.moveTo(i * 9.3, 10.0);
        path.lineTo(200.0, 290.0 - i * 5.7);
    }
    return path;
}

QPainterPath withCurve(QPainterPath path)
{
    path.cubicTo(10.0, 10.0, 300.0, 20.0, 200.0, 250.0);
    return path;
}

QPainterPath withLoosePoint(QPainterPath path)
{
    path.moveTo(50.0, 50.0);
    return path;
}

QPainterPath ellipses()
{
    QPainterPath path;
    for (int i = 0; i < 3000; ++i)
        path.addEllipse(QPointF(200.0 + 190.0 * std::sin(i * 0.7), i * 0.1), 1.0 + i % 7, 9.0);
    return path;
}

const KRTestTable<QPainterPath> &outlines()
{
    static const KRTestTable<QPainterPath> table{
        {"fine walk", walk(1200, 5.0, 0.3)},
        {"walk in whole pixels", wholePixels(walk(1200, 5.0, 0.3))},
        {"trembling walk", wholePixels(walk(1200, 6.0, 2.0))},
        {"short walk", walk(25, 5.0, 0.3)},
        {"a few strides", wholePixels(walk(4, 150.0, 1.0))},
        {"walk in long strides", walk(60, 90.0, 1.0)},
        {"steep zigzag", zigzag({3.0, 350.0}, {10.7, 0.0}, 40)},
        {"flat zigzag", zigzag({430.0, 2.0}, {0.0, 7.3}, 40)},
        {"slanting zigzag", zigzag({430.0, 333.0}, {9.9, -8.7}, 40)},
        {"upright zigzag far beyond the image", zigzag({0.0, 5000.0}, {30.0, 0.0}, 12)},
        {"there and back again", zigzag({270.0, 160.0}, {0.0, 0.0}, 40).translated(40.0, 60.0)},
        {"closed outline", closedCoast(true)},
        {"open outline", closedCoast(false)},
        {"closed outline in whole pixels", wholePixels(closedCoast(true))},
        {"outline with enclaves", stars(31, 3)},
        {"few lines, long", stars(7, 2)},
        {"steep zigzag from afar to afar", zigzag({-9000.0, 31000.0}, {90.1, 3.3}, 5).translated(300.0, -9000.0)},
        {"flat zigzag from afar to afar", zigzag({31000.0, -900.0}, {3.3, 30.7}, 5).translated(-9000.0, 300.0)},
        {"nothing in sight", walk(1200, 5.0, 0.3).translated(2000.0, 0.0)},
        {"curve", withCurve(walk(300, 5.0, 0.3))},
        {"lines apart", linesApart()},
        {"loose point", withLoosePoint(walk(300, 5.0, 0.3))},
    };
    return table;
}

QPen roundPen(double width, int alpha = 255)
{
    return QPen(QColor(255, 145, 0, alpha), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

/// A ground of many colours.
QImage colorful()
{
    QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qPremultiply(qRgba(x & 255, y & 255, (x * y) & 255, (x + y) & 255)));
    return image;
}

/// What @p draw leaves on such a ground.
QImage painted(const Setup &setup, const Setup &draw, QImage::Format format = QImage::Format_ARGB32_Premultiplied)
{
    static const QImage ground = colorful();
    QImage image = ground.convertToFormat(format);
    image.detach();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(roundPen(9.0, 150));
    setup(&painter);
    draw(&painter);
    return image;
}

} // namespace

class tst_KRGPXPathPainter : public QObject
{
    Q_OBJECT

private slots:
    void lines();
    void areas();
    void painters();
    void otherDevicesKeepThePath();
};

void tst_KRGPXPathPainter::lines()
{
    outlines().forEach([](const QPainterPath &path) {
        for (const QPen &pen :
             {roundPen(10.0), roundPen(10.0, 100), roundPen(3.3, 100), roundPen(70.0, 100), roundPen(1.5),
              roundPen(1.0, 100), roundPen(0.0, 100), QPen(Qt::blue, 8.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin),
              QPen(Qt::blue, 8.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin),
              QPen(Qt::blue, 4.0, Qt::DashLine, Qt::RoundCap, Qt::RoundJoin),
              QPen(QColor(0, 0, 255, 90), 7.0, Qt::DashDotLine, Qt::FlatCap, Qt::BevelJoin),
              QPen(Qt::blue, 4.0, Qt::NoPen)}) {
            const auto setPen = [&](QPainter *p) { p->setPen(pen); };
            const QImage expected = painted(setPen, [&](QPainter *p) { p->drawPath(path); });
            const QImage seen = painted(setPen, [&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); });
            QVERIFY2(seen == expected, qPrintable(QStringLiteral("pen of %1 pixels").arg(pen.widthF())));
        }
    });
}

void tst_KRGPXPathPainter::areas()
{
    const auto check = [](QPainterPath path) {
        for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill}) {
            path.setFillRule(rule);
            for (const int alpha : {255, 90}) {
                const QBrush brush(QColor(10, 90, 200, alpha));
                QVERIFY(painted(setNothing, [&](QPainter *p) { KRGPXPathPainter::fillPath(p, path, brush); })
                        == painted(setNothing, [&](QPainter *p) { p->fillPath(path, brush); }));
            }
        }
    };
    outlines().forEach(check);
    const KRTestTable<QPainterPath> large{
        {"many corners", closedCoast(false, 20000)},
        {"many corners with enclaves", stars(4001, 3)},
        {"many curves", ellipses()},
    };
    large.forEach(check);
}

void tst_KRGPXPathPainter::painters()
{
    const auto usual = QImage::Format_ARGB32_Premultiplied;
    QLinearGradient gradient(0.0, 0.0, 400.0, 300.0);
    gradient.setColorAt(0.0, Qt::red);
    gradient.setColorAt(1.0, QColor(0, 0, 255, 50));
    QPainterPath circle;
    circle.addEllipse(100.0, 50.0, 200.0, 200.0);
    const QTransform turned = QTransform::fromTranslate(-200.0, -150.0) * QTransform().rotate(30.0).scale(1.2, 0.3)
                              * QTransform::fromTranslate(200.0, 150.0);
    const KRTestTable<QImage::Format, Setup> table{
        {"no alpha", QImage::Format_RGB32, setNothing},
        {"alpha beside the colours", QImage::Format_ARGB32, setNothing},
        {"16 bits", QImage::Format_RGB16, setNothing},
        {"24 bits", QImage::Format_RGB888, setNothing},
        {"bytes in the order of the web", QImage::Format_RGBA8888_Premultiplied, setNothing},
        {"64 bits", QImage::Format_RGBA64_Premultiplied, setNothing},
        {"alpha only", QImage::Format_Alpha8, setNothing},
        {"greys", QImage::Format_Grayscale8, setNothing},
        {"colour table of two", QImage::Format_Mono, setNothing},
        {"moved", usual, [](QPainter *p) { p->translate(-17.3, 40.6); }},
        {"enlarged", usual, [](QPainter *p) { p->scale(2.5, 2.5); }},
        {"reduced", usual, [](QPainter *p) { p->scale(0.6, 0.6); }},
        {"reduced to a hairline", usual, [](QPainter *p) { p->scale(0.1, 0.1); }},
        {"flattened and turned", usual, [&](QPainter *p) { p->setTransform(turned); }},
        {"in perspective", usual, [](QPainter *p) { p->setTransform(QTransform(1, 0, 0.001, 0, 1, 0, 0, 0, 1)); }},
        {"flattened to nothing", usual, [](QPainter *p) { p->scale(1.0, 0.0); }},
        {"window and viewport", usual, [](QPainter *p) { p->setWindow(0, 0, 800, 500); }},
        {"clipped to a rectangle", usual, [](QPainter *p) { p->setClipRect(QRectF(100.5, 30.0, 150.0, 200.0)); }},
        {"clipped to a circle", usual, [&](QPainter *p) { p->setClipPath(circle); }},
        {"half transparent", usual, [](QPainter *p) { p->setOpacity(0.5); }},
        {"erasing", usual, [](QPainter *p) { p->setCompositionMode(QPainter::CompositionMode_DestinationOut); }},
        {"replacing", usual, [](QPainter *p) { p->setCompositionMode(QPainter::CompositionMode_Source); }},
        {"not antialiased", usual, [](QPainter *p) { p->setRenderHint(QPainter::Antialiasing, false); }},
        {"pen of constant width", usual,
         [](QPainter *p) {
             QPen pen = p->pen();
             pen.setCosmetic(true);
             p->setPen(pen);
             p->scale(1.5, 1.5);
         }},
        {"pen of changing colour", usual,
         [&](QPainter *p) { p->setPen(QPen(QBrush(gradient), 10.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)); }},
    };
    const QPainterPath path = walk(800, 5.0, 0.3);
    const QPainterPath area = closedCoast(true, 12000);
    const QColor color(10, 90, 200, 90);
    table.forEach([&](QImage::Format format, const Setup &setup) {
        QVERIFY(painted(
                    setup, [&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); }, format)
                == painted(
                    setup, [&](QPainter *p) { p->drawPath(path); }, format));
        QVERIFY(painted(
                    setup, [&](QPainter *p) { KRGPXPathPainter::fillPath(p, area, color); }, format)
                == painted(
                    setup, [&](QPainter *p) { p->fillPath(area, color); }, format));
    });
}

void tst_KRGPXPathPainter::otherDevicesKeepThePath()
{
    const QPainterPath path = walk(1200, 5.0, 0.3);
    const auto recorded = [](const Setup &draw) {
        QPicture picture;
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(10.0));
        draw(&painter);
        painter.end();
        return QByteArray(picture.data(), int(picture.size()));
    };
    QCOMPARE(recorded([&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); }),
             recorded([&](QPainter *p) { p->drawPath(path); }));
    QCOMPARE(recorded([&](QPainter *p) { KRGPXPathPainter::fillPath(p, path, Qt::red); }),
             recorded([&](QPainter *p) { p->fillPath(path, Qt::red); }));
}

static const KRTestRegistration<tst_KRGPXPathPainter> registration;

#include "tst_KRGPXPathPainter.moc"
