#include <KRGeoLocation/KRGPXFullShapeListModel.h>

#include "KRTestRegistry.h"

#include <QIcon>
#include <QSignalSpy>
#include <QtTest>

class tst_KRGPXFullShapeListModel : public QObject
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void fills_data();
    void fills();
    void picksColors_data();
    void picksColors();
    void announcesIconsWithEverySetter();
    void showsItsShapes();
};

void tst_KRGPXFullShapeListModel::startsEmpty()
{
    const KRGPXFullShapeListModel model;
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(model.markerAt(0) == KRGPXFullShape());
    QVERIFY(model.markerAt(-1) == KRGPXFullShape());
    QCOMPARE(model.indexOf(KRGPXFullShape(PointTrackShape, DiskMarkerShape)), -1);
    QVERIFY(model.wouldBeInvisible());
}

void tst_KRGPXFullShapeListModel::fills_data()
{
    QTest::addColumn<int>("trackShape");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("searchedTrackShape");
    QTest::addColumn<int>("searchedMarker");
    QTest::addColumn<int>("expectedRow");
    QTest::newRow("a line: area, line, arrow") << 4 << 3 << 4 << 1024 << 2;
    QTest::newRow("a line: no point") << 4 << 3 << 1 << 1 << -1;
    QTest::newRow("only the searched one is normalized") << 4 << 3 << 8 << 1024 << 0;
    QTest::newRow("a flight line") << 2 << 1 << 2 << 0 << 0;
    QTest::newRow("auto has nothing to choose") << 256 << 0 << 4 << 0 << -1;
}

void tst_KRGPXFullShapeListModel::fills()
{
    QFETCH(int, trackShape);
    QFETCH(int, searchedTrackShape);
    QFETCH(int, searchedMarker);
    KRGPXFullShapeListModel model;
    QSignalSpy resets(&model, &KRGPXFullShapeListModel::modelReset);
    model.fill(KRGPXTrackShape(static_cast<KRGPXTrackShapeEnum>(trackShape)));
    QCOMPARE(resets.count(), 1);
    QTEST(model.rowCount(), "rows");
    QTEST(model.indexOf(KRGPXFullShape(static_cast<KRGPXTrackShapeEnum>(searchedTrackShape),
                                       static_cast<KRGPXMarkerShapeEnum>(searchedMarker))),
          "expectedRow");
}

void tst_KRGPXFullShapeListModel::picksColors_data()
{
    QTest::addColumn<int>("options");
    QTest::addColumn<QColor>("stroke");
    QTest::addColumn<QColor>("fill");
    QTest::newRow("both") << 3 << QColor(Qt::red) << QColor(Qt::green);
    QTest::newRow("line only") << 1 << QColor(Qt::red) << QColor(Qt::transparent);
    QTest::newRow("filling only") << 6 << QColor(Qt::transparent) << QColor(Qt::green);
    QTest::newRow("nothing to be seen") << 4 << QColor(Qt::black) << QColor(Qt::black);
}

void tst_KRGPXFullShapeListModel::picksColors()
{
    QFETCH(int, options);
    KRGPXFullShapeListModel model;
    model.setStrokeColor(Qt::red);
    model.setFillColor(Qt::green);
    model.setDisplayOptions(static_cast<KRGPXTrackDisplayOptionsEnum>(options));
    QTEST(model.effectiveStrokeColor(), "stroke");
    QTEST(model.effectiveFillColor(), "fill");
    QCOMPARE(model.wouldBeInvisible(), (options & 3) == 0);
}

void tst_KRGPXFullShapeListModel::announcesIconsWithEverySetter()
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

void tst_KRGPXFullShapeListModel::showsItsShapes()
{
    KRGPXFullShapeListModel model;
    model.fill(PointTrackShape);
    model.setStrokeColor(Qt::red);
    model.setFillColor(Qt::blue);
    model.setDisplayOptions(FillDisplayOption);
    const QModelIndex disk = model.index(model.indexOf(KRGPXFullShape(PointTrackShape, DiskMarkerShape)), 0);
    QCOMPARE(disk.data().toString(), QStringLiteral("Punkt"));
    QVERIFY(!disk.data(Qt::ToolTipRole).toString().isEmpty());
    QVERIFY(!disk.data(Qt::EditRole).isValid());
    const QImage icon = disk.data(Qt::DecorationRole).value<QIcon>().pixmap(32, 32).toImage();
    QCOMPARE(icon.pixelColor(16, 16), QColor(Qt::blue));
}

static const KRTestRegistration<tst_KRGPXFullShapeListModel> registration;

#include "tst_KRGPXFullShapeListModel.moc"
