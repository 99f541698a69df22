#include <KRGeoLocation/KRGPXMarkerShape.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestXml.h"

#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QtTest>

#include <cmath>

namespace {

// Markers 100 pixels wide in a picture of 120, whose middle is the marker's; the figures with a thin pen grow to 104.
constexpr int middle = 60;

QImage picture(KRGPXMarkerShapeEnum shape, const QColor &fill = Qt::red)
{
    return KRGPXMarkerShape(shape).createImage(QSize(100, 100), 20, Qt::black, fill);
}

} // namespace

class tst_KRGPXMarkerShape : public QObject
{
    Q_OBJECT

private slots:
    void xml();
    void pen();
    void drawKeepsThePainterAsItIs();
    void figure();
    void star();
    void crossHasWholeOuterAndExactInnerOffsets();
    void imagesAndIcons();
};

void tst_KRGPXMarkerShape::xml()
{
    QCOMPARE(KRGPXMarkerShape::fromXml(KRTestXml::element("<c/>")).value(), DiskMarkerShape);
    for (int value = 0; value < 0x1000; ++value) {
        QDomElement parent = KRTestXml::element("<c/>");
        KRGPXMarkerShape(static_cast<KRGPXMarkerShapeEnum>(value)).toXml(parent);
        QCOMPARE(int(KRGPXMarkerShape::fromXml(parent).value()), value & 0x7DB); // 4 and 32 have no key and get lost
        if (value == 0x7FF)
            QCOMPARE(KRTestXml::childrenOf(parent),
                     QStringLiteral("markerShape=disk,circle,x,block,rhombus,star6,star9,star12,arrow;"));
    }
}

void tst_KRGPXMarkerShape::pen()
{
    const KRTestTable<KRGPXMarkerShapeEnum, int, int, bool> table{
        {"10 is wide", CircleMarkerShape, 10, 2, false},
        {"9 is not", CircleMarkerShape, 9, 1, true},
        {"the disk keeps its pen", DiskMarkerShape, 12, 12, false},
        {"the block keeps its pen", BlockMarkerShape, 8, 8, false},
        {"one solid bit is enough", static_cast<KRGPXMarkerShapeEnum>(3), 8, 8, false},
    };
    table.forEach([](KRGPXMarkerShapeEnum shape, int width, int expectedWidth, bool cosmetic) {
        QImage canvas(10, 10, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&canvas);
        painter.setPen(QPen(Qt::black, width));
        KRGPXMarkerShape(shape).configurePainter(&painter, QRectF(0, 0, 10, 10));
        QCOMPARE(painter.pen().width(), expectedWidth);
        QCOMPARE(painter.pen().isCosmetic(), cosmetic);
        QVERIFY(painter.testRenderHint(QPainter::Antialiasing));
    });
}

void tst_KRGPXMarkerShape::drawKeepsThePainterAsItIs()
{
    QImage canvas(40, 40, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&canvas);
    const QPen pen(Qt::black, 12);
    painter.setPen(pen);
    KRGPXMarkerShape(CircleMarkerShape).draw(&painter, QPointF(20, 20), 10, 5);
    QCOMPARE(painter.pen(), pen);
    QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
}

void tst_KRGPXMarkerShape::figure()
{
    const QColor pen = Qt::black;
    const QColor fill = Qt::red;
    const QColor nothing = Qt::transparent;
    const KRTestTable<KRGPXMarkerShapeEnum, QPoint, QColor> table{
        {"disk: middle", DiskMarkerShape, QPoint(60, 60), fill},
        {"disk: wide pen", DiskMarkerShape, QPoint(11, 60), pen},
        {"circle: thin pen", CircleMarkerShape, QPoint(11, 60), fill},
        {"circle: corner", CircleMarkerShape, QPoint(18, 18), nothing},
        {"two bits: ellipse", static_cast<KRGPXMarkerShapeEnum>(136), QPoint(18, 18), nothing},
        {"block: wide pen", BlockMarkerShape, QPoint(11, 60), pen},
        {"rhombus: corner", RhombusMarkerShape, QPoint(30, 30), nothing},
        {"x: bar", XMarkerShape, QPoint(26, 26), fill},
        {"x: the ends of the bars are cut", XMarkerShape, QPoint(14, 14), nothing},
        {"x: notch above", XMarkerShape, QPoint(60, 30), nothing},
    };
    table.forEach([](KRGPXMarkerShapeEnum shape, QPoint point, const QColor &expected) {
        QCOMPARE(picture(shape).pixelColor(point).rgba(), expected.rgba());
        // A translucent filling is painted once.
        const QColor translucent(255, 0, 0, 128);
        QCOMPARE(picture(shape, translucent).pixelColor(middle, middle), translucent);
    });
}

void tst_KRGPXMarkerShape::star()
{
    const KRTestTable<KRGPXMarkerShapeEnum, int, double> table{
        {"6", Star6MarkerShape, 6, 0.5},
        {"9", Star9MarkerShape, 9, 0.3},
        {"12", Star12MarkerShape, 12, 0.7},
    };
    table.forEach([](KRGPXMarkerShapeEnum shape, int points, double innerRatio) {
        const QImage image = picture(shape);
        // Counted from straight below the centre; the corner there is an inner one.
        const auto alphaAt = [&](double turn, double ratio) {
            const double angle = turn * 2.0 * M_PI;
            return image
                .pixelColor(qRound(middle + std::sin(angle) * ratio * 52),
                            qRound(middle + std::cos(angle) * ratio * 52))
                .alpha();
        };
        for (int corner = 0; corner < points; ++corner) {
            const double innerTurn = double(corner) / points;
            const double outerTurn = (corner + 0.5) / points;
            QCOMPARE(alphaAt(innerTurn, innerRatio - 0.1), 255);
            QCOMPARE(alphaAt(innerTurn, innerRatio + 0.15), 0);
            QCOMPARE(alphaAt(outerTurn, 0.8), 255);
            QCOMPARE(alphaAt(outerTurn, 1.06), 0);
        }
    });
}

void tst_KRGPXMarkerShape::crossHasWholeOuterAndExactInnerOffsets()
{
    // 24 pixels wide: the bars end at 4, the inner corners lie 4.8 from the middle.
    QImage canvas(240, 240, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.scale(10, 10);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::red);
    KRGPXMarkerShape(XMarkerShape).drawX(&painter, QRectF(0, 0, 24, 24));
    QVERIFY(canvas.pixelColor(42, 2).alpha() == 255);
    QVERIFY(canvas.pixelColor(36, 2).alpha() == 0);
    QVERIFY(canvas.pixelColor(74, 120).alpha() == 255);
    QVERIFY(canvas.pixelColor(70, 120).alpha() == 0);
}

void tst_KRGPXMarkerShape::imagesAndIcons()
{
    const KRGPXMarkerShape disk(DiskMarkerShape);
    const QImage image = disk.createImage(QSize(21, 11), 7, Qt::black, Qt::red);
    QCOMPARE(image.size(), QSize(28, 18));
    QCOMPARE(image.format(), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(image.pixelColor(14, 9), QColor(Qt::red));
    QVERIFY(disk.createImage(QSize(0, 0), 0, Qt::black, Qt::red).isNull());

    const QList<KRGPXMarkerShape> ofLines = KRGPXMarkerShape::allLineStringShapes();
    QCOMPARE(ofLines, QList<KRGPXMarkerShape>({NoMarkerShape, ArrowMarkerShape}));
    for (const KRGPXMarkerShape &shape : ofLines)
        QVERIFY(shape.createIcon(Qt::black, Qt::red).isNull());
    QVector<int> ofPoints;
    for (const KRGPXMarkerShape &shape : KRGPXMarkerShape::allPointShapes()) {
        ofPoints.append(shape.value());
        const QIcon icon = shape.createIcon(Qt::black, Qt::red);
        const auto imageOnScreen = [&icon](int pixelsPerPoint) {
            QImage screen(QSize(32, 32) * pixelsPerPoint, QImage::Format_ARGB32_Premultiplied);
            screen.setDevicePixelRatio(pixelsPerPoint);
            screen.fill(Qt::transparent);
            QPainter painter(&screen);
            icon.paint(&painter, QRect(0, 0, 32, 32));
            return screen;
        };
        const QImage usual = shape.createImage(QSize(20, 20), 12, Qt::black, Qt::red);
        QCOMPARE(imageOnScreen(1), usual);
        // The same on finer screens, with lines as thick and more detail.
        for (const int ratio : {2, 3}) {
            const QImage fine = imageOnScreen(ratio);
            QVERIFY(fine != usual.scaled(fine.size()));
            const auto inkOf = [](const QImage &picture) {
                double ink = 0.0;
                for (int i = 0; i < picture.width() * picture.height(); ++i)
                    ink += picture.pixelColor(i % picture.width(), i / picture.width()).alphaF();
                return ink;
            };
            QVERIFY(qAbs(inkOf(fine) / (ratio * ratio) / inkOf(usual) - 1.0) < 0.1);
        }
    }
    QCOMPARE(ofPoints, QVector<int>({1, 2, 128, 256, 512, 8, 16, 32, 64}));
}

template class KRTestRegistration<tst_KRGPXMarkerShape>;

#include "tst_KRGPXMarkerShape.moc"
