#include <KRGeoLocation/KRGPXPathPainter.h>

#include "KRTestRegistry.h"

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

QPainterPath backAndForth()
{
    QPainterPath path(QPointF(30.0, 40.0));
    for (int i = 0; i < 40; ++i)
        path.lineTo(i % 2 == 0 ? QPointF(300.0, 200.0) : QPointF(30.0, 40.0));
    return path;
}

QPen roundPen(double width, int alpha = 255)
{
    return QPen(QColor(255, 145, 0, alpha), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

/// What @p draw leaves on a ground of many colours.
QImage painted(QImage::Format format, const QPen &pen, const Setup &setup, const Setup &draw)
{
    QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qPremultiply(qRgba(x & 255, y & 255, (x * y) & 255, (x + y) & 255)));
    image = image.convertToFormat(format);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    setup(&painter);
    draw(&painter);
    return image;
}

} // namespace

Q_DECLARE_METATYPE(QImage::Format)
Q_DECLARE_METATYPE(QPainterPath)
Q_DECLARE_METATYPE(Setup)

class tst_KRGPXPathPainter : public QObject
{
    Q_OBJECT

private slots:
    void outlines_data();
    void outlines();
    void painters_data();
    void painters();
    void areas_data();
    void areas();
    void otherDevicesKeepThePath();
};

void tst_KRGPXPathPainter::outlines_data()
{
    QTest::addColumn<QPainterPath>("path");
    QTest::newRow("fine walk") << walk(1200, 5.0, 0.3);
    QTest::newRow("walk in whole pixels") << wholePixels(walk(1200, 5.0, 0.3));
    QTest::newRow("trembling walk") << wholePixels(walk(1200, 6.0, 2.0));
    QTest::newRow("short walk") << walk(25, 5.0, 0.3);
    QTest::newRow("a few strides") << wholePixels(walk(4, 150.0, 1.0));
    QTest::newRow("walk in long strides") << walk(60, 90.0, 1.0);
    QTest::newRow("steep zigzag") << zigzag({3.0, 350.0}, {10.7, 0.0}, 40);
    QTest::newRow("flat zigzag") << zigzag({430.0, 2.0}, {0.0, 7.3}, 40);
    QTest::newRow("slanting zigzag") << zigzag({430.0, 333.0}, {9.9, -8.7}, 40);
    QTest::newRow("upright zigzag far beyond the image") << zigzag({0.0, 5000.0}, {30.0, 0.0}, 12);
    QTest::newRow("there and back again") << backAndForth();
    QTest::newRow("closed outline") << closedCoast(true);
    QTest::newRow("open outline") << closedCoast(false);
    QTest::newRow("closed outline in whole pixels") << wholePixels(closedCoast(true));
    QTest::newRow("outline with enclaves") << stars(31, 3);
    QTest::newRow("few lines, long") << stars(7, 2);
    QTest::newRow("steep zigzag from afar to afar")
        << zigzag({-9000.0, 31000.0}, {90.1, 3.3}, 5).translated(300.0, -9000.0);
    QTest::newRow("flat zigzag from afar to afar")
        << zigzag({31000.0, -900.0}, {3.3, 30.7}, 5).translated(-9000.0, 300.0);
    QTest::newRow("nothing in sight") << walk(1200, 5.0, 0.3).translated(2000.0, 0.0);
    QPainterPath curve = walk(300, 5.0, 0.3);
    curve.cubicTo(10.0, 10.0, 300.0, 20.0, 200.0, 250.0);
    QTest::newRow("curve") << curve;
    QPainterPath apart;
    for (int i = 0; i < 40; ++i) {
        apart.moveTo(i * 9.3, 10.0);
        apart.lineTo(200.0, 290.0 - i * 5.7);
    }
    QTest::newRow("lines apart") << apart;
    QPainterPath dots = walk(300, 5.0, 0.3);
    dots.moveTo(50.0, 50.0);
    QTest::newRow("loose point") << dots;
}

void tst_KRGPXPathPainter::outlines()
{
    QFETCH(QPainterPath, path);
    QVector<QPen> pens{roundPen(10.0), roundPen(10.0, 100), roundPen(3.3, 100), roundPen(70.0, 100),
                       roundPen(1.5),  roundPen(1.0, 100),  roundPen(0.0, 100)};
    pens.append(QPen(Qt::darkBlue, 8.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    pens.append(QPen(Qt::darkBlue, 8.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    pens.append(QPen(Qt::darkBlue, 4.0, Qt::DashLine, Qt::RoundCap, Qt::RoundJoin));
    for (const QPen &pen : pens) {
        const auto format = QImage::Format_ARGB32_Premultiplied;
        const QImage expected = painted(format, pen, setNothing, [&](QPainter *p) { p->drawPath(path); });
        const QImage seen = painted(format, pen, setNothing, [&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); });
        QVERIFY2(seen == expected, qPrintable(QStringLiteral("pen of %1 pixels").arg(pen.widthF())));
    }
}

void tst_KRGPXPathPainter::painters_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<Setup>("setup");
    const auto row = [](const char *name, const Setup &setup,
                        QImage::Format format = QImage::Format_ARGB32_Premultiplied) {
        QTest::newRow(name) << format << setup;
    };
    row("no alpha", setNothing, QImage::Format_RGB32);
    row("alpha beside the colours", setNothing, QImage::Format_ARGB32);
    row("16 bits", setNothing, QImage::Format_RGB16);
    row("24 bits", setNothing, QImage::Format_RGB888);
    row("bytes in the order of the web", setNothing, QImage::Format_RGBA8888_Premultiplied);
    row("64 bits", setNothing, QImage::Format_RGBA64_Premultiplied);
    row("alpha only", setNothing, QImage::Format_Alpha8);
    row("greys", setNothing, QImage::Format_Grayscale8);
    row("colour table of two", setNothing, QImage::Format_Mono);
    row("moved", [](QPainter *p) { p->translate(-17.3, 40.6); });
    row("enlarged", [](QPainter *p) { p->scale(2.5, 2.5); });
    row("reduced", [](QPainter *p) { p->scale(0.6, 0.6); });
    row("reduced to a hairline", [](QPainter *p) { p->scale(0.1, 0.1); });
    row("flattened and turned", [](QPainter *p) {
        p->translate(200.0, 150.0);
        p->rotate(30.0);
        p->scale(1.2, 0.3);
        p->translate(-200.0, -150.0);
    });
    row("in perspective", [](QPainter *p) { p->setTransform(QTransform(1, 0, 0.001, 0, 1, 0, 0, 0, 1)); });
    row("flattened to nothing", [](QPainter *p) { p->scale(1.0, 0.0); });
    row("window and viewport", [](QPainter *p) { p->setWindow(0, 0, 800, 500); });
    row("clipped to a rectangle", [](QPainter *p) { p->setClipRect(QRectF(100.5, 30.0, 150.0, 200.0)); });
    row("clipped to a circle", [](QPainter *p) {
        QPainterPath circle;
        circle.addEllipse(100.0, 50.0, 200.0, 200.0);
        p->setClipPath(circle);
    });
    row("half transparent", [](QPainter *p) { p->setOpacity(0.5); });
    row("erasing", [](QPainter *p) { p->setCompositionMode(QPainter::CompositionMode_DestinationOut); });
    row("replacing", [](QPainter *p) { p->setCompositionMode(QPainter::CompositionMode_Source); });
    row("not antialiased", [](QPainter *p) { p->setRenderHint(QPainter::Antialiasing, false); });
    row("pen of constant width", [](QPainter *p) {
        QPen pen = p->pen();
        pen.setCosmetic(true);
        p->setPen(pen);
        p->scale(1.5, 1.5);
    });
    row("pen of changing colour", [](QPainter *p) {
        QLinearGradient gradient(0.0, 0.0, 400.0, 300.0);
        gradient.setColorAt(0.0, Qt::red);
        gradient.setColorAt(1.0, QColor(0, 0, 255, 50));
        p->setPen(QPen(QBrush(gradient), 10.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    });
}

void tst_KRGPXPathPainter::painters()
{
    QFETCH(QImage::Format, format);
    QFETCH(Setup, setup);
    const QPainterPath path = walk(800, 5.0, 0.3);
    const QImage expected = painted(format, roundPen(9.0, 150), setup, [&](QPainter *p) { p->drawPath(path); });
    const QImage seen =
        painted(format, roundPen(9.0, 150), setup, [&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); });
    QVERIFY(seen == expected);

    const QPainterPath area = closedCoast(true);
    const QColor color(10, 90, 200, 90);
    QVERIFY(painted(format, QPen(), setup, [&](QPainter *p) { KRGPXPathPainter::fillPath(p, area, color); })
            == painted(format, QPen(), setup, [&](QPainter *p) { p->fillPath(area, color); }));
}

void tst_KRGPXPathPainter::areas_data()
{
    outlines_data();
    QTest::newRow("many corners") << closedCoast(false, 20000);
    QTest::newRow("many corners with enclaves") << stars(4001, 3);
    QPainterPath manyCurves;
    for (int i = 0; i < 3000; ++i)
        manyCurves.addEllipse(QPointF(200.0 + 190.0 * std::sin(i * 0.7), i * 0.1), 1.0 + i % 7, 9.0);
    QTest::newRow("many curves") << manyCurves;
}

void tst_KRGPXPathPainter::areas()
{
    QFETCH(QPainterPath, path);
    for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill}) {
        path.setFillRule(rule);
        for (const int alpha : {255, 90}) {
            const QBrush brush(QColor(10, 90, 200, alpha));
            const auto format = QImage::Format_ARGB32_Premultiplied;
            QVERIFY(
                painted(format, QPen(), setNothing, [&](QPainter *p) { KRGPXPathPainter::fillPath(p, path, brush); })
                == painted(format, QPen(), setNothing, [&](QPainter *p) { p->fillPath(path, brush); }));
        }
    }
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
