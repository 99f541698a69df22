#include <KRGeoLocation/KRGPXPathPainter.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <KRCore/KRQtCompat.h>

#include <QBuffer>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPicture>
#include <QtTest>

#include <cmath>
#include <functional>
#include <random>

namespace {

using Setup = std::function<void(QPainter *)>;

void setNothing(QPainter *) { }

/// Paths and pens of all kinds, the same in every run.
class Chance
{
public:
    double between(double from, double to) { return std::uniform_real_distribution<double>(from, to)(m_engine); }
    bool isOneOf(int count) { return m_engine() % unsigned(count) == 0; }
    /// From small to large in equal proportions.
    double magnitude(double from, double to) { return std::exp(between(std::log(from), std::log(to))); }
    QPointF place() { return QPointF(between(-40.0, 440.0), between(-40.0, 340.0)); }

    /// A walk, straight or trembling, in whole pixels or not, closed or not.
    void addWalk(int steps, double stepPx, QPainterPath *path)
    {
        const double turn = magnitude(0.05, 3.0);
        const bool isWhole = isOneOf(2);
        double heading = between(0.0, 6.3);
        QPointF point = place();
        for (int i = 0; i <= steps; ++i) {
            const QPointF drawn = isWhole ? QPointF(std::trunc(point.x()), std::trunc(point.y())) : point;
            i == 0 ? path->moveTo(drawn) : path->lineTo(drawn);
            heading += between(-turn, turn);
            if (!QRectF(-600.0, -600.0, 1600.0, 1500.0).contains(point))
                heading = std::atan2(150.0 - point.y(), 200.0 - point.x());
            point += stepPx * between(0.1, 1.0) * QPointF(std::cos(heading), std::sin(heading));
        }
        if (isOneOf(3))
            path->closeSubpath();
    }

    QPainterPath path(int mostSteps)
    {
        QPainterPath path;
        do
            addWalk(int(magnitude(1.0, mostSteps)), magnitude(1.0, 500.0), &path);
        while (isOneOf(4));
        if (isOneOf(10))
            path.cubicTo(place(), place(), place());
        if (isOneOf(10))
            path.moveTo(place());
        path.setFillRule(isOneOf(2) ? Qt::OddEvenFill : Qt::WindingFill);
        return path;
    }

    QPen pen()
    {
        const QColor color(255, 145, 0, isOneOf(2) ? 255 : int(between(0.0, 255.0)));
        const auto style = isOneOf(3) ? Qt::PenStyle(int(between(0.0, 6.0))) : Qt::SolidLine;
        const auto cap = isOneOf(2) ? Qt::RoundCap : isOneOf(2) ? Qt::SquareCap : Qt::FlatCap;
        const auto join = isOneOf(2) ? Qt::RoundJoin : isOneOf(3) ? Qt::MiterJoin : Qt::BevelJoin;
        return QPen(color, magnitude(0.3, 100.0), style, cap, join);
    }

private:
    std::mt19937 m_engine{4711};
};

QPainterPath zigzag(const QPointF &stroke, const QPointF &step, int count)
{
    QPainterPath path(QPointF(-10.0, -20.0));
    for (int i = 1; i <= count; ++i)
        path.lineTo(path.elementAt(0) + step * i + (i % 2 == 1 ? stroke : QPointF()));
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

/// What a line leaves whose dashes stay where they are.
QImage filledOutline(const QPainterPath &path, const QPen &pen)
{
    const QPainterPath outline = QPainterPathStroker(pen).createStroke(path);
    return painted(setNothing, [&](QPainter *p) { p->fillPath(outline, pen.color()); });
}

} // namespace

class tst_KRGPXPathPainter : public QObject
{
    Q_OBJECT

private slots:
    void lines();
    void crowdsOfLines();
    void crowdsOfWideLinesHideNothing();
    void linesOfSeveralTiles();
    void linesToFarAway();
    void areas();
    void painters();
    void otherDevicesKeepThePath();
    void pagesKeepCrowdsThatShow();
};

void tst_KRGPXPathPainter::lines()
{
    const auto isSame = [](const QPainterPath &path, const QPen &pen) {
        const auto setPen = [&](QPainter *p) { p->setPen(pen); };
        const QImage image = painted(setPen, [&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); });
        return image == painted(setPen, [&](QPainter *p) { p->drawPath(path); })
               || (KRQtCompat::painterMovesDashes && pen.style() != Qt::SolidLine && image == filledOutline(path, pen));
    };
    Chance chance;
    for (int i = 0; i < 400; ++i)
        QVERIFY2(isSame(chance.path(300), chance.pen()), qPrintable(QString::number(i)));
    for (int i = 0; i < 400; ++i) {
        QPainterPath line(chance.place());
        line.lineTo(chance.place());
        QVERIFY2(isSame(line, chance.pen()), qPrintable(QString::number(i)));
    }
    const KRTestTable<QPainterPath> awkward{
        {"lines apart", linesApart()},
        {"steep zigzag from afar to afar", zigzag({-9000.0, 31000.0}, {90.1, 3.3}, 5).translated(300.0, -9000.0)},
        {"nothing in sight", zigzag({430.0, 333.0}, {9.9, -8.7}, 40).translated(2000.0, 0.0)},
    };
    awkward.forEach([&](const QPainterPath &path) {
        for (const QPen &pen : {roundPen(10.0), roundPen(3.3, 100), roundPen(70.0, 100), roundPen(1.0, 100)})
            QVERIFY(isSame(path, pen));
    });
}

/// Those that are left out would show in nothing but soft edges.
void tst_KRGPXPathPainter::crowdsOfLines()
{
    Chance chance;
    const auto crowded = [&] { return QPointF(chance.between(20.0, 150.0), chance.between(30.0, 280.0)); };
    QPainterPath crowd;
    for (int i = 0; i < 25000; ++i) {
        crowd.moveTo(crowded());
        crowd.lineTo(crowded());
    }
    QPainterPath walk;
    chance.addWalk(200, 40.0, &walk);
    QPainterPath path = crowd;
    path.addPath(walk);
    const auto setPen = [](QPainter *p) { p->setPen(roundPen(1.5)); };
    const QImage fast = painted(setPen, [&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); });
    const QImage whole = painted(setPen, [&](QPainter *p) {
        for (int i = 1; i < crowd.elementCount(); i += 2)
            p->drawLine(crowd.elementAt(i - 1), crowd.elementAt(i));
        p->drawPath(walk);
    });
    int different = 0;
    for (int y = 0; y < whole.height(); ++y)
        for (int x = 0; x < whole.width(); ++x)
            different += std::abs(qGreen(whole.pixel(x, y)) - qGreen(fast.pixel(x, y))) > 30 ? 1 : 0;
    QVERIFY2(different < 200, qPrintable(QString::number(different)));
}

void tst_KRGPXPathPainter::crowdsOfWideLinesHideNothing()
{
    QPainterPath path(QPointF(-50.0, 80.0));
    for (int i = 0; i < 21000; ++i)
        path.lineTo(i % 2 == 0 ? 350.0 : -50.0 - i % 100 * 0.5, 80.0);
    path.lineTo(-50.0, 100.0);
    path.lineTo(350.0, 100.0);
    const QImage image =
        painted([](QPainter *p) { p->setPen(QPen(Qt::black, 160.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)); },
                [&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); });
    QCOMPARE(image.pixel(150, 178), qRgb(0, 0, 0));
}

void tst_KRGPXPathPainter::linesToFarAway()
{
    Chance chance;
    QPainterPath path;
    chance.addWalk(300, 40.0, &path);
    path.lineTo(150.0, 150.0);
    for (const int alpha : {255, 120}) {
        const auto drawn = [&](double far) {
            QPainterPath whole = path;
            whole.lineTo(150.0 + far, 150.0 + far / 2.0);
            return painted([&](QPainter *p) { p->setPen(roundPen(6.0, alpha)); },
                           [&](QPainter *p) { KRGPXPathPainter::drawPath(p, whole); });
        };
        const QImage expected = drawn(2000.0);
        for (const double far : {1.1e6, 3e9}) {
            int different = 0;
            const QImage image = drawn(far);
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    different += std::abs(qGreen(expected.pixel(x, y)) - qGreen(image.pixel(x, y))) > 3 ? 1 : 0;
            QCOMPARE(different, 0);
        }
    }
}

void tst_KRGPXPathPainter::linesOfSeveralTiles()
{
    // to and fro, beside each other, so that none of them may be left out
    QPainterPath path(QPointF(3.0, 3.0));
    for (int row = 0; row < 60; ++row)
        for (int i = 1; i <= 400; ++i) {
            const double x = i * 5.5;
            path.lineTo(row % 2 == 0 ? x : 2206.0 - x, 6.0 + 20.0 * row + i % 2 * 9.0);
        }
    const auto drawn = [&](int alpha, const Setup &draw) {
        QImage image(2210, 1210, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(3.0, alpha));
        draw(&painter);
        return image;
    };
    for (const int alpha : {255, 120})
        QVERIFY(drawn(alpha, [&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); })
                == drawn(alpha, [&](QPainter *p) { p->drawPath(path); }));
}

void tst_KRGPXPathPainter::areas()
{
    const auto isSame = [](const QPainterPath &path, const QColor &color) {
        return painted(setNothing, [&](QPainter *p) { KRGPXPathPainter::fillPath(p, path, color); })
               == painted(setNothing, [&](QPainter *p) { p->fillPath(path, color); });
    };
    Chance chance;
    for (int i = 0; i < 200; ++i)
        QVERIFY2(isSame(chance.path(i < 195 ? 1000 : 30000), chance.pen().color()), qPrintable(QString::number(i)));
    // so far that the painter calculates with other roundings
    QPainterPath far = zigzag({430.0, 333.0}, {0.1, -0.07}, 1200);
    far.lineTo(-20000.0, 30000.0);
    far.lineTo(25000.0, 20000.0);
    QVERIFY(isSame(far, Qt::blue));
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
        {"16 bits", QImage::Format_RGB16, setNothing},
        {"colour table of two", QImage::Format_Mono, setNothing},
        {"moved", usual, [](QPainter *p) { p->translate(-17.3, 40.6); }},
        {"reduced", usual, [](QPainter *p) { p->scale(0.6, 0.6); }},
        {"reduced to a hairline", usual, [](QPainter *p) { p->scale(0.1, 0.1); }},
        {"flattened and turned", usual, [&](QPainter *p) { p->setTransform(turned); }},
        {"in perspective", usual, [](QPainter *p) { p->setTransform(QTransform(1, 0, 0.001, 0, 1, 0, 0, 0, 1)); }},
        {"flattened to nothing", usual, [](QPainter *p) { p->scale(1.0, 0.0); }},
        {"window and viewport", usual, [](QPainter *p) { p->setWindow(0, 0, 800, 500); }},
        {"clipped to a circle", usual, [&](QPainter *p) { p->setClipPath(circle); }},
        {"half transparent", usual, [](QPainter *p) { p->setOpacity(0.5); }},
        {"erasing", usual, [](QPainter *p) { p->setCompositionMode(QPainter::CompositionMode_DestinationOut); }},
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
    Chance chance;
    QPainterPath path;
    chance.addWalk(800, 10.0, &path);
    QPainterPath area;
    chance.addWalk(12000, 20.0, &area);
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
    QPainterPath path;
    Chance().addWalk(1200, 5.0, &path);
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

void tst_KRGPXPathPainter::pagesKeepCrowdsThatShow()
{
    // paper has far finer units than those of the painter
    const auto pageOf = [](const Setup &draw, int alpha) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setResolution(1200);
        QPainter painter(&writer);
        painter.scale(writer.width() / 400.0, writer.width() / 400.0);
        painter.setPen(roundPen(5.0, alpha));
        draw(&painter);
        painter.end();
        return buffer.data().size();
    };
    Chance chance;
    const auto pathIn = [&](const QRectF &area, int lines) {
        QPainterPath path(area.topLeft());
        for (int i = 0; i < lines; ++i)
            path.lineTo(chance.between(area.left(), area.right()), chance.between(area.top(), area.bottom()));
        return path;
    };
    const QRectF sight(0.0, 0.0, 400.0, 500.0);
    const KRTestTable<QPainterPath, int, double, double> table{
        {"few lines", pathIn(sight, 5000), 255, 0.2, 0.9},
        {"few half transparent", pathIn(sight, 5000), 150, 0.2, 0.75},
        {"few, most of them beside the page", pathIn(sight.adjusted(-40.0, 0.0, 100000.0, 0.0), 500), 255, 0.0, 0.2},
        {"many", pathIn(sight, 100000), 255, 0.05, 0.5},
        {"many half transparent", pathIn(sight, 30000), 150, 0.01, 0.35},
        {"many beside the page", pathIn(sight.translated(500.0, 0.0), 30000), 150, 0.0, 0.01},
    };
    table.forEach([&](const QPainterPath &path, int alpha, double least, double most) {
        const double part = double(pageOf([&](QPainter *p) { KRGPXPathPainter::drawPath(p, path); }, alpha))
                            / pageOf([&](QPainter *p) { p->drawPath(path); }, alpha);
        QVERIFY2(part >= least && part <= most, QByteArray::number(part).constData());
    });
}

template class KRTestRegistration<tst_KRGPXPathPainter>;

#include "tst_KRGPXPathPainter.moc"
