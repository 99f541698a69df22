#include "KRMapFurniture.h"
#include "KRMapLegend.h"
#include "KRNamedTrack.h"
#include "KRTest.h"
#include "KRTestMap.h"
#include "KRTestPicture.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>

namespace {

const KRGeoPositionRect area = KRTestMap{50.0, 54.0, 6.0, 12.0}.area();

KRGPXTrackSelection tracks(int count, const QString &name)
{
    KRGPXTrackSelection selection;
    for (int i = 0; i < count; ++i)
        selection.addTrack(namedTrack({{51.0, 7.0}, {53.0, 11.0}}, LineStringTrackShape, Qt::darkGreen, name));
    return selection;
}

QImage painted(const KRGPXTrackSelection &selection, const QSize &size, double factor)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::gray);
    QPainter painter(&image);
    KRMapLegend::paint(painter, selection, KRMapProjection(area, size), size, factor);
    return image;
}

} // namespace

class tst_KRMapLegend : public QObject
{
    Q_OBJECT

private slots:
    void keepsToItsPlace()
    {
        const QString brief = QStringLiteral("Weg");
        const QString lengthy = QStringLiteral("Ein Weg mit einem Namen, der nicht enden will ").repeated(9);
        const KRTestTable<QSize, double, int, QString, bool> table{
            {"high density", QSize(1600, 1200), 2.0, 5, brief, true},
            {"long names", QSize(1600, 1200), 1.0, 5, lengthy, true},
            {"many tracks", QSize(800, 600), 1.0, 1000, lengthy, true},
            {"no room", QSize(300, 24), 1.0, 3, brief, false},
            {"no track", QSize(800, 600), 1.0, 0, brief, false},
        };
        table.forEach([&](const QSize &size, double factor, int count, const QString &name, bool isThere) {
            const KRGPXTrackSelection selection = tracks(count, name);
            const KRMapProjection projection(area, size);
            const QRect legend = KRTestPicture::boundsOf(painted(selection, size, factor),
                                                         [](const QColor &color) { return color != QColor(Qt::gray); });
            QCOMPARE(!legend.isEmpty(), isThere);
            const QRectF box = KRMapLegend::box(selection, projection, size, factor);
            QVERIFY(legend.isEmpty() ? box.isEmpty() : box.adjusted(-2, -2, 2, 2).contains(legend));
            if (legend.isEmpty())
                return;
            QVERIFY(legend.width() < size.width() / 2 && legend.left() > size.width() / 2);
            QVERIFY(!box.intersects(KRMapFurniture::scaleBarBox(size, projection, factor)));
            QVERIFY(!box.intersects(KRMapFurniture::attributionBox(size, factor)));
            const QString credit = QStringLiteral("Kacheln der Stadt");
            QVERIFY(!box.intersects(KRMapFurniture::creditBox(size, credit, factor)));
        });
    }

    void showsTheLookOfEachTrack()
    {
        const KRGeoPositionList way{{51.0, 7.0}, {53.0, 11.0}, {52.0, 8.0}};
        KRGPXTrackSelection selection;
        selection.addTrack(namedTrack(way, LineStringTrackShape, Qt::red));
        selection.addTrack(namedTrack(way, PolygonTrackShape, Qt::darkGreen));
        selection.addTrack(namedTrack({{51.0, 7.0}}, PointTrackShape, Qt::magenta));
        const QSize size(1600, 1200);
        const QImage image = painted(selection, size, 1.0);
        const QRect box = KRMapLegend::box(selection, KRMapProjection(area, size), size, 1.0).toAlignedRect();
        const int rowHeight = (box.height() - 16) / selection.count();

        const auto boundsInRow = [&](int row, const std::function<bool(const QColor &)> &isMeant) {
            const QRect sample(box.left() + 8, box.top() + 8 + row * rowHeight, 48, rowHeight);
            return KRTestPicture::boundsOf(image.copy(sample), isMeant);
        };
        const auto is = [](const QColor &wanted) { return [wanted](const QColor &color) { return color == wanted; }; };
        QVERIFY(boundsInRow(0, is(Qt::red)).width() > 30);
        QVERIFY(qAbs(boundsInRow(0, is(Qt::red)).height() - 5) <= 1);
        QVERIFY(boundsInRow(1, is(Qt::darkGreen)).height() > 12);
        QVERIFY(boundsInRow(1, [](const QColor &color) { return color.blue() > color.red() + 40; }).width() > 25);
        const auto isMagenta = [](const QColor &color) { return color.red() > color.green() + 120; };
        const QRect marker = boundsInRow(2, isMagenta);
        QVERIFY(marker.width() > 5 && marker.width() < 24 && qAbs(marker.center().x() - 24) < 2);
    }
};

template class KRTestRegistration<tst_KRMapLegend>;

#include "tst_KRMapLegend.moc"
