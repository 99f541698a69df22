#include "KRLabelRoom.h"

#include "KRTest.h"

class tst_KRLabelRoom : public QObject
{
    Q_OBJECT

private slots:
    void middleLiesInside()
    {
        const KRTestTable<QPolygonF, QPointF> table{
            {"square", QPolygonF({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), QPointF(5, 5)},
            // The centroid of the horseshoe lies in its opening; its foot is the widest place.
            {"horseshoe", QPolygonF({{0, 0}, {10, 0}, {10, 80}, {90, 80}, {90, 0}, {100, 0}, {100, 100}, {0, 100}}),
             QPointF(50, 81.25)},
            {"without area", QPolygonF({{3, 4}, {5, 4}, {7, 4}}), QPointF(5, 4)},
        };
        table.forEach([](const QPolygonF &shape, QPointF expected) {
            const QPointF middle = KRLabelRoom(shape).middle();
            QVERIFY2(QLineF(middle, expected).length() < 1e-6,
                     qPrintable(QStringLiteral("%1 %2").arg(middle.x()).arg(middle.y())));
        });
    }

    void placesLieInside()
    {
        const QPointF wanted(90, 10);
        const QVector<QPointF> places = KRLabelRoom(hook()).placesFor(QSizeF(30, 12), wanted);
        QVERIFY(places.size() > 10);
        for (const QPointF &place : places) {
            for (const QPointF &corner : {QPointF(-15, -6), QPointF(15, -6), QPointF(15, 6), QPointF(-15, 6)})
                QVERIFY(hook().containsPoint(place + 0.999 * corner, Qt::OddEvenFill));
        }
        for (int i = 1; i < places.size(); ++i)
            QVERIFY(QLineF(wanted, places.at(i - 1)).length() <= QLineF(wanted, places.at(i)).length());

        QVERIFY(KRLabelRoom(hook()).placesFor(QSizeF(101, 5), QPointF(50, 50)).isEmpty());
        QVERIFY(KRLabelRoom(hook()).placesFor(QSizeF(50, 30), QPointF(50, 50)).isEmpty());
        QVERIFY(KRLabelRoom(hook()).placesFor(QSizeF(5, 1e12), QPointF(50, 50)).isEmpty());
        QVERIFY(KRLabelRoom(QPolygonF()).placesFor(QSizeF(5, 5), QPointF()).isEmpty());
    }

private:
    /// A wide arm to the left above a narrow one to the right, joined by a foot.
    static QPolygonF hook()
    {
        return QPolygonF({{0, 0}, {40, 0}, {40, 80}, {80, 80}, {80, 0}, {100, 0}, {100, 100}, {0, 100}});
    }
};

template class KRTestRegistration<tst_KRLabelRoom>;

#include "tst_KRLabelRoom.moc"
