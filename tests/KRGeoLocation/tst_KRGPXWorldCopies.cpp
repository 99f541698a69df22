#include <KRGeoLocation/KRGPXWorldCopies.h>

#include "KRTest.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

namespace {

using Points = QVector<QPointF>;
using Shifts = QVector<int>;

QPainterPath pathThrough(const Points &points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    return path;
}

} // namespace

class tst_KRGPXWorldCopies : public QObject
{
    Q_OBJECT

private slots:
    void visibleShifts()
    {
        const KRTestTable<int, double, int> table{
            {"one world", 360, 360.0, 2},
            {"two worlds and a bit", 800, 360.0, 3},
            {"the world is cut to whole pixels", 361, 180.9, 3},
            {"world of no width", 300, 0.0, 1},
            {"world the wrong way round", 300, -100.0, 1},
            {"world of unknown width", 300, qQNaN(), 1},
            {"no device", 0, 360.0, 1},
        };
        table.forEach([](int pictureWidth, double worldWidth, int last) {
            const KRIntRange shifts = KRGPXWorldCopies(QPointF(worldWidth, 0.0)).visibleShifts(pictureWidth);
            QCOMPARE(shifts.minimum(), -last);
            QCOMPARE(shifts.maximum(), last);
        });
    }

    void drawnCopies()
    {
        const Points line{{10, 50}, {20, 50}};
        const Points rounds{{10, 50}, {250, 50}, {500, 50}, {750, 50}, {1000, 50}, {1270, 50}};
        const KRTestTable<QPointF, Points, double, Shifts> table{
            {"two worlds in the picture", {150, 0}, line, 5, {0, 1}},
            {"the pen reaches into it", {150, 0}, line, 15, {0, 1, 2}},
            {"a point has copies", {150, 0}, Points{{310, 50}}, 5, {-2, -1}},
            {"world the wrong way round", {-150, 0}, line, 5, {-1, 0}},
            {"three rounds and a half", {360, 0}, rounds, 5, {-3, -2, -1, 0}},
            {"a leap over worlds is no round", {360, 0}, {{10, 50}, {1270, 50}}, 5, {-1, 0}},
            {"nothing in sight", {360, 0}, {{10, 500}, {20, 500}}, 5, {}},
            {"upright world", {0, 70}, {{10, 20}, {10, 40}}, 5, {0, 1}},
            {"round map", {1e-12, -1e-12}, rounds, 5, {0}},
            {"unknown width", {qQNaN(), 0}, rounds, 5, {0}},
        };
        table.forEach([](const QPointF &offset, const Points &points, double reach, const Shifts &expected) {
            QImage picture(300, 100, QImage::Format_ARGB32_Premultiplied);
            QPainter painter(&picture);
            Shifts shifts;
            KRGPXWorldCopies(offset).forEach(&painter, pathThrough(points), reach, [&] {
                const QPointF way(painter.transform().dx(), painter.transform().dy());
                const double shift = offset.x() != 0.0   ? way.x() / offset.x()
                                     : offset.y() != 0.0 ? way.y() / offset.y()
                                                         : 0;
                shifts << (way.isNull() ? 0 : qRound(shift));
                QCOMPARE(way, way.isNull() ? QPointF() : shifts.last() * offset);
            });
            QCOMPARE(shifts, expected);
            QVERIFY(painter.transform().isIdentity());
        });
    }

    void longLinesInManyCopies()
    {
        const KRGPXWorldCopies copies(QPointF(20.0, 0.0));
        QImage picture(8000, 13, QImage::Format_ARGB32_Premultiplied);
        const QPen opaque(Qt::black, 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        const auto drawn = [&](const QPainterPath &path) {
            picture.fill(Qt::white);
            QPainter painter(&picture);
            painter.setPen(opaque);
            copies.forEach(&painter, path, 5.0, [&] { painter.drawPath(path); });
            return picture;
        };
        // Where it begins, how far each of its lines leads, and after how many it lies upon those before in some copy.
        const KRTestTable<double, double, int> table{
            {"spiral of many rounds", 6.5, -16.0, 15},
            {"to and fro in the middle", 4006.5, 0.0, 3},
            {"at the right", 7994.5, 0.0, 3},
        };
        table.forEach([&](double begin, double step, int period) {
            const auto path = [&](int count) {
                QPainterPath lines(QPointF(begin, 1.5));
                for (int i = 1; i <= count; ++i)
                    lines.lineTo(begin + step * i + i % 3, 1.5 + i % 3 * 5);
                return lines;
            };
            QImage device(picture.size(), picture.format());
            const QPainter painter(&device);
            const auto linesOf = [&](const QPen &pen) { return copies.linesToDraw(&painter, path(3000), pen); };
            QVERIFY(linesOf(opaque).elementCount() <= 2 * period);
            QVERIFY(drawn(linesOf(opaque)) == drawn(path(period)));
            // Dashes and what shines through depend on all of them.
            QCOMPARE(linesOf(QPen(QColor(0, 0, 0, 100))), path(3000));
            QCOMPARE(linesOf(QPen(Qt::black, 1.0, Qt::DashLine)), path(3000));
        });
    }

    void otherDevices()
    {
        // No more is known of them than the neighbours of their width, until there is a clip.
        QPixmap pixmap(300, 100);
        QPainter painter(&pixmap);
        int drawn = 0;
        const auto draw = [&] { ++drawn; };
        const KRGPXWorldCopies copies(QPointF(360.0, 0.0));
        copies.forEach(&painter, pathThrough({{10.0, 50.0}, {20.0, 50.0}}), 5.0, draw);
        QCOMPARE(drawn, 3);
        painter.setClipRect(0, 0, 300, 100);
        copies.forEach(&painter, pathThrough({{10.0, 50.0}, {20.0, 50.0}}), 5.0, draw);
        QCOMPARE(drawn, 3 + 1);

        painter.end();
        copies.forEach(&painter, pathThrough({{10.0, 50.0}, {300.0, 50.0}, {600.0, 50.0}, {900.0, 50.0}}), 5.0, draw);
        QCOMPARE(drawn, 3 + 1);
    }

    void holesInTheirAreas()
    {
        const QRectF area(350.0, 20.0, 60.0, 60.0);
        const KRTestTable<QPointF, QRectF, double> table{
            {"inside already", {360, 0}, {360, 30, 10, 10}, 360},
            {"two worlds to the east", {360, 0}, {1090, 30, 10, 10}, 370},
            {"world the wrong way round", {-360, 0}, {10, 30, 10, 10}, 370},
            {"above the area in every copy", {360, 0}, {10, 0, 10, 10}, 10},
            {"upright world", {0, 360}, {10, 30, 10, 10}, 10},
            {"world below a pixel", {1e-9, 0}, {10, 30, 10, 10}, 10},
            {"unknown width", {qQNaN(), 0}, {10, 30, 10, 10}, 10},
        };
        table.forEach([&](const QPointF &offset, const QRectF &hole, double left) {
            const QPainterPath brought = KRGPXWorldCopies(offset).broughtTo(area, pathThrough(QPolygonF(hole)));
            QCOMPARE(brought.boundingRect(), QRectF(QPointF(left, hole.top()), hole.size()));
        });
        QVERIFY(KRGPXWorldCopies(QPointF(360.0, 0.0)).broughtTo(area, QPainterPath()).isEmpty());
    }
};

template class KRTestRegistration<tst_KRGPXWorldCopies>;

#include "tst_KRGPXWorldCopies.moc"
