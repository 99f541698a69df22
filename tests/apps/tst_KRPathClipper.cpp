#include "KRPathClipper.h"
#include "KRPolygon.h"

#include "KRTest.h"

/// The constructor of QPolygonF is ambiguous for two points in braces.
static QPolygonF polygon(const QVector<QPointF> &points)
{
    return points;
}

class tst_KRPathClipper : public QObject
{
    Q_OBJECT

private slots:
    void ring()
    {
        const KRTestTable<QPolygonF, double> table{
            {"inside", polygon({{10, 10}, {20, 10}, {20, 30}}), 100.0},
            {"around a corner outside", polygon({{-50, 60}, {50, 160}, {-50, 160}}), 0.0},
            {"encloses the rectangle", polygon({{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}}), 1e4},
            {"counter-clockwise over a corner", polygon({{50, 50}, {50, 150}, {150, 150}, {150, 50}}), 2500.0},
            {"leaves and returns twice",
             polygon({{0, 0}, {200, 0}, {200, 20}, {50, 20}, {50, 40}, {200, 40}, {200, 60}, {0, 60}}), 5000.0},
        };
        table.forEach([](const QPolygonF &ring, double areaInside) {
            const QRectF bounds(0, 0, 100, 100);
            const QPolygonF clipped = KRPathClipper(bounds).ring(ring);
            QVERIFY2(qAbs(KRPolygon::area(clipped) - areaInside) < 1e-3,
                     qPrintable(QString::number(KRPolygon::area(clipped))));
            for (const QPointF &point : clipped)
                QVERIFY(bounds.adjusted(-1e-4, -1e-4, 1e-4, 1e-4).contains(point));
        });
    }

    void line()
    {
        using Pieces = QVector<QPolygonF>;
        QCOMPARE(KRPathClipper(QRectF(0, 0, 100, 100)).line(polygon({{-50, 60}, {50, 160}})), Pieces());
        QCOMPARE(KRPathClipper(QRectF(0, 0, 100, 100)).line(polygon({{-1e9, 50}, {1e9, 50}})),
                 Pieces{polygon({{0, 50}, {100, 50}})});
        QCOMPARE(
            KRPathClipper(QRectF(0, 0, 100, 100)).line(polygon({{50, 50}, {150, 50}, {150, 60}, {50, 60}, {40, 60}})),
            (Pieces{polygon({{50, 50}, {100, 50}}), polygon({{100, 60}, {50, 60}, {40, 60}})}));
        QCOMPARE(KRPathClipper(QRectF(0, 0, 100, 100)).line(polygon({{-1, 0}, {-1, 100}})), Pieces());
    }
};

template class KRTestRegistration<tst_KRPathClipper>;

#include "tst_KRPathClipper.moc"
