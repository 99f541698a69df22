#include "KRPathClipper.h"
#include "KRPolygon.h"

#include "KRTestRegistry.h"

#include <QtTest>

/// The constructor of QPolygonF is ambiguous for two points in braces.
static QPolygonF polygon(const QVector<QPointF> &points)
{
    return points;
}

class tst_KRPathClipper : public QObject
{
    Q_OBJECT

private slots:
    void ring_data();
    void ring();
    void line_data();
    void line();
};

void tst_KRPathClipper::ring_data()
{
    QTest::addColumn<QPolygonF>("ring");
    QTest::addColumn<double>("areaInside");
    QTest::newRow("inside") << polygon({{10, 10}, {20, 10}, {20, 30}}) << 100.0;
    QTest::newRow("outside") << polygon({{110, 10}, {120, 10}, {120, 30}}) << 0.0;
    QTest::newRow("around a corner outside") << polygon({{-50, 60}, {50, 160}, {-50, 160}}) << 0.0;
    QTest::newRow("encloses the rectangle") << polygon({{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}}) << 1e4;
    QTest::newRow("counter-clockwise over a corner") << polygon({{50, 50}, {50, 150}, {150, 150}, {150, 50}}) << 2500.0;
    QTest::newRow("leaves and returns twice")
        << polygon({{0, 0}, {200, 0}, {200, 20}, {50, 20}, {50, 40}, {200, 40}, {200, 60}, {0, 60}}) << 5000.0;
}

void tst_KRPathClipper::ring()
{
    QFETCH(QPolygonF, ring);
    QFETCH(double, areaInside);
    const QRectF bounds(0, 0, 100, 100);
    const QPolygonF clipped = KRPathClipper(bounds).ring(ring);
    QVERIFY2(qAbs(KRPolygon::area(clipped) - areaInside) < 1e-3, qPrintable(QString::number(KRPolygon::area(clipped))));
    for (const QPointF &point : clipped)
        QVERIFY(bounds.adjusted(-1e-4, -1e-4, 1e-4, 1e-4).contains(point));
}

void tst_KRPathClipper::line_data()
{
    QTest::addColumn<QPolygonF>("line");
    QTest::addColumn<QVector<QPolygonF>>("pieces");
    using Pieces = QVector<QPolygonF>;
    QTest::newRow("inside") << polygon({{10, 10}, {20, 10}, {20, 30}})
                            << Pieces{polygon({{10, 10}, {20, 10}, {20, 30}})};
    QTest::newRow("passes a corner outside") << polygon({{-50, 60}, {50, 160}}) << Pieces();
    QTest::newRow("through, both ends far away")
        << polygon({{-1e9, 50}, {1e9, 50}}) << Pieces{polygon({{0, 50}, {100, 50}})};
    QTest::newRow("leaves and returns") << polygon({{50, 50}, {150, 50}, {150, 60}, {50, 60}, {40, 60}})
                                        << Pieces{polygon({{50, 50}, {100, 50}}),
                                                  polygon({{100, 60}, {50, 60}, {40, 60}})};
    QTest::newRow("upright, left of it") << polygon({{-1, 0}, {-1, 100}}) << Pieces();
}

void tst_KRPathClipper::line()
{
    QFETCH(QPolygonF, line);
    QTEST(KRPathClipper(QRectF(0, 0, 100, 100)).line(line), "pieces");
}

static const KRTestRegistration<tst_KRPathClipper> registration;

#include "tst_KRPathClipper.moc"
