#include <KRGeoLocation/KRGPXFullShapeListModel.h>

#include "KRTest.h"

#include <QIcon>

namespace {

KRGPXFullShape shape(int trackShape, int marker)
{
    return {static_cast<KRGPXTrackShapeEnum>(trackShape), static_cast<KRGPXMarkerShapeEnum>(marker)};
}

} // namespace

/// The model of shapes to choose from, and the shapes in it.
class tst_KRGPXFullShapeListModel : public QObject
{
    Q_OBJECT

private slots:
    void normalized()
    {
        const KRTestTable<KRGPXTrackShapeEnum, int, int> table{
            {"a point has no arrow", PointTrackShape, (ArrowMarkerShape | DiskMarkerShape), 1},
            {"a point keeps every marker but 4", PointTrackShape, 0x7FF, 0x3FB},
            {"a line has nothing but the arrow", LineStringTrackShape, 0x7FF, 0x400},
            {"a flight line has no marker", HopTrackShape, 0x400, 0},
        };
        table.forEach([](KRGPXTrackShapeEnum trackShape, int marker, int expected) {
            KRGPXFullShape full = shape(trackShape, marker);
            const KRGPXFullShape normalized = full.normalized();
            QVERIFY(full == shape(trackShape, marker));
            QVERIFY(normalized == shape(trackShape, expected));
            full.normalize();
            QVERIFY(full == normalized);
        });
    }

    void fills()
    {
        const KRTestTable<int, int, KRGPXFullShape, int> table{
            {"a line: area, line, arrow", 4, 3, shape(4, 1024), 2},
            {"a line: no point", 4, 3, shape(1, 1), -1},
            {"only the searched one is normalized", 4, 3, shape(8, 1024), 0},
            {"a flight line", 2, 1, shape(2, 0), 0},
            {"auto has nothing to choose", 256, 0, shape(4, 0), -1},
        };
        table.forEach([](int trackShape, int rows, const KRGPXFullShape &searched, int expectedRow) {
            KRGPXFullShapeListModel model;
            QCOMPARE(model.rowCount(), 0);
            QCOMPARE(model.indexOf(searched), -1);
            QSignalSpy resets(&model, &KRGPXFullShapeListModel::modelReset);
            model.fill(KRGPXTrackShape(static_cast<KRGPXTrackShapeEnum>(trackShape)));
            QCOMPARE(resets.count(), 1);
            QCOMPARE(model.rowCount(), rows);
            QCOMPARE(model.indexOf(searched), expectedRow);
            for (const int row : {-1, rows})
                QVERIFY(model.markerAt(row) == KRGPXFullShape());
        });
    }

    void picksColors()
    {
        const KRTestTable<int, QColor, QColor> table{
            {"both", 3, QColor(Qt::red), QColor(Qt::green)},
            {"filling only", 6, QColor(Qt::transparent), QColor(Qt::green)},
            {"nothing to be seen", 4, QColor(Qt::black), QColor(Qt::black)},
        };
        table.forEach([](int options, const QColor &stroke, const QColor &fill) {
            KRGPXFullShapeListModel model;
            QVERIFY(model.wouldBeInvisible());
            model.setStrokeColor(Qt::red);
            model.setFillColor(Qt::green);
            model.setDisplayOptions(static_cast<KRGPXTrackDisplayOptionsEnum>(options));
            QCOMPARE(model.effectiveStrokeColor(), stroke);
            QCOMPARE(model.effectiveFillColor(), fill);
            QCOMPARE(model.wouldBeInvisible(), (options & 3) == 0);
        });
    }

    void announcesIconsWithEverySetter()
    {
        KRGPXFullShapeListModel model;
        QSignalSpy changes(&model, &KRGPXFullShapeListModel::dataChanged);
        model.setStrokeColor(Qt::red);
        model.setStrokeColor(Qt::red);
        QCOMPARE(changes.count(), 2);
        model.fill(PointTrackShape);
        model.setFillColor(Qt::green);
        model.setDisplayOptions(StrokeDisplayOption);
        QCOMPARE(changes.count(), 4);
        QCOMPARE(changes.last().at(1).toModelIndex(), model.index(model.rowCount() - 1, 0));
        QCOMPARE(changes.last().at(2).value<QVector<int>>(), QVector<int>{Qt::DecorationRole});
    }

    void showsItsShapes()
    {
        KRGPXFullShapeListModel model;
        model.setFillColor(Qt::blue);
        model.setDisplayOptions(FillDisplayOption);
        model.fill(PointTrackShape);
        const QModelIndex disk = model.index(model.indexOf(shape(PointTrackShape, DiskMarkerShape)), 0);
        QCOMPARE(disk.data().toString(), QStringLiteral("Punkt"));
        QVERIFY(!disk.data(Qt::EditRole).isValid());
        QCOMPARE(disk.data(Qt::DecorationRole).value<QIcon>().pixmap(32).toImage().pixelColor(16, 16),
                 QColor(0, 0, 255));
        model.fill(LineStringTrackShape);
        const QModelIndex arrow = model.index(2, 0);
        QCOMPARE(arrow.data().toString(), QStringLiteral("Pfeil"));
        QCOMPARE(arrow.data(Qt::ToolTipRole).toString(),
                 QStringLiteral("Alle Punkte werden zu einer Strecke verbunden."));
        QVERIFY(arrow.data(Qt::DecorationRole).value<QIcon>().isNull());
    }
};

template class KRTestRegistration<tst_KRGPXFullShapeListModel>;

#include "tst_KRGPXFullShapeListModel.moc"
