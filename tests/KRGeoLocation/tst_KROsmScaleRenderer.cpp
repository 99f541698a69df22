#include <KRGeoLocation/KROsmScaleRenderer.h>

#include "KRTest.h"
#include "KRTestPicture.h"

#include <QFontMetrics>
#include <QImage>

namespace {

/// A box of RGB 225 with alpha 180 over white: 225 * 180 / 255 + 255 * 75 / 255.
constexpr int boxLightness = 234;

QImage painted(const QSize &size, double pixelsPerKilometre, double factor)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    KROsmScaleRenderer(pixelsPerKilometre, size).renderScale(&image, factor);
    return image;
}

bool isBox(const QImage &image, double x, double y)
{
    return qAbs(image.pixelColor(qRound(x), qRound(y)).lightness() - boxLightness) <= 2;
}

/// Whether a line runs through the point. Antialiasing may put it half into the pixel left of or above it.
bool isLine(const QImage &image, double x, double y)
{
    return KRTestPicture::boundsOfDark(image.copy(qRound(x) - 1, qRound(y) - 1, 2, 2)).isValid();
}

} // namespace

class tst_KROsmScaleRenderer : public QObject
{
    Q_OBJECT

private slots:
    void distance()
    {
        const KRTestTable<int, double, double, KRText> table{
            {"300 m fit", 900, 1000.0, 0.25, "250 m"},
            {"exactly a step fits", 900, 300.0, 0.5, "500 m"},
            {"two thirds of a narrow image", 300, 100.0, 1.0, "1 km"},
            {"10 m, a little more", 900, 15000.0, 0.010000000000000002, "10 m"},
            {"exactly 10 m fit", 900, 30000.0, 0.005, "5 m"},
            {"2.5 m is rounded up", 900, 100000.0, 0.0025, "3 m"},
            {"exactly 2.5 m fit", 900, 120000.0, 0.001, "1 m"},
            {"not even a metre fits", 900, 1e6, 0.001, "1 m"},
            {"beyond the steps", 900, 0.001, 300000.0, "300000 km"},
            {"seven digits", 900, 300.0 / 2500000, 2500000.0, "2.5e+06 km"},
            {"no scale", 900, 0.0, qInf(), "inf km"},
            {"image without width", 0, 100.0, 0.001, "1 m"},
        };
        table.forEach([](int width, double pixelsPerKilometre, double kilometers, const QString &text) {
            const KROsmScaleRenderer renderer(pixelsPerKilometre, QSize(width, 100));
            QVERIFY(renderer.shownKilometers() == kilometers); // to the last digit
            QCOMPARE(renderer.scaleText(), text);
        });
    }

    void layout()
    {
        const KRTestTable<double, QRect, QRectF, QPointF> table{
            // The bottom of a QRectF is the edge below the last row, that of a QRect the last row itself.
            {"normal screen", 1.0, QRect(0, 0, 900, 600), QRectF(10, 590, 250, -20), QPointF(260, 589)},
            {"twice as fine", 2.0, QRect(0, 0, 900, 600), QRectF(20, 580, 500, -40), QPointF(520, 579)},
            {"cut to pixels", 0.53, QRect(0, 0, 900, 600), QRectF(5.3, 594.7, 132, -10), QPointF(137.3, 593.7)},
        };
        table.forEach([](double factor, const QRect &area, const QRectF &bar, QPointF labelOrigin) {
            const KROsmScaleRenderer renderer(100.0, area.size());
            QCOMPARE(renderer.strokeRect(area, factor), bar);
            const QRectF label = renderer.textRect(area, factor);
            QCOMPARE(QPointF(label.x(), label.y()), labelOrigin);
            const QSize textSize =
                QFontMetrics(renderer.textFont(1.0)).size(Qt::TextSingleLine, QStringLiteral("2.5 km"));
            QCOMPARE(label.width(), (textSize.width() + 20) * factor);
            QCOMPARE(label.height(), (textSize.height() + 5) * -factor);
        });
    }

    void maximumPaintFactorFillsTheLimit()
    {
        const KROsmScaleRenderer wide(70.0, QSize(900, 100));
        QCOMPARE(wide.strokeLength(wide.maximumPaintFactor()), 300.0);
        const KROsmScaleRenderer narrow(70.0, QSize(300, 100));
        QCOMPARE(narrow.strokeLength(narrow.maximumPaintFactor()), 200.0);
    }

    void bracket()
    {
        // 2.5 m are 150 pixels. The base of the bar lies at y 290, the bar 6 above it, the ends of the ticks 20.
        const QImage image = painted(QSize(1600, 300), 60000.0, 1.0);
        for (double x = 11; x < 160; x += 10)
            QVERIFY(isLine(image, x, 284));
        for (double y = 272; y < 284; y += 2) {
            QVERIFY(isLine(image, 10, y));
            QVERIFY(isLine(image, 160, y));
            QVERIFY(isBox(image, 85, y));
        }
        for (const double x : {10.0, 85.0, 160.0}) {
            QVERIFY(isBox(image, x, 287));
            QVERIFY(isBox(image, x, 267));
        }
        QVERIFY(isBox(image, 7, 284));
        QVERIFY(isBox(image, 163, 284));
    }

    void labelStandsBehindTheBar()
    {
        const QSize size(1600, 300);
        const QImage image = painted(size, 60000.0, 1.0);
        const QRectF label = KROsmScaleRenderer(60000.0, size).textRect(image.rect(), 1.0).normalized();

        // The box reaches from the left edge of the image to the end of the label.
        const QRectF box(QPointF(0, label.top()), QPointF(label.right(), 290));
        const QRect paintedBounds = KRTestPicture::boundsOfPainted(image);
        QVERIFY(box.adjusted(0, -1, 1, 1).toAlignedRect().contains(paintedBounds));
        QVERIFY(paintedBounds.contains(box.adjusted(0, 1, -1, -1).toAlignedRect()));

        const QRect textArea = label.adjusted(3, 0, 0, 0).toAlignedRect();
        const QRectF text = KRTestPicture::boundsOfDark(image.copy(textArea)).translated(textArea.topLeft());
        QVERIFY(!text.isEmpty());
        QVERIFY(qAbs(text.center().x() - label.center().x()) < 4);
        QVERIFY(qAbs(text.center().y() - label.center().y()) < label.height() / 4);
    }

    void risesAboveTheAttribution()
    {
        const KRTestTable<int, bool> table{
            {"box ends at a third of the image", 0, false},
            {"box ends a pixel farther right", 1, true},
        };
        table.forEach([](int excessPx, bool rises) {
            // The bar is 300 pixels long at most, so the end of the box does not depend on the width of so wide an
            // image.
            const double pixelsPerKilometre = 60000.0;
            const QRectF label = KROsmScaleRenderer(pixelsPerKilometre, QSize(900, 300))
                                     .textRect(QRect(0, 0, 900, 300), 1.0)
                                     .normalized();
            const QSize size(3 * (qRound(label.right()) - excessPx), 300);
            const QImage image = painted(size, pixelsPerKilometre, 1.0);
            const double boxHeight = 290 - label.top();
            const double rise = rises ? 1.5 * boxHeight : 0.0;
            QVERIFY(isLine(image, 85, 284 - rise));
            QVERIFY(qAbs(KRTestPicture::boundsOfPainted(image).bottom() - (289 - rise)) <= 1.0);
            QVERIFY(qAbs(KRTestPicture::boundsOfPainted(image).top() - (label.top() - rise)) <= 1.0);
        });
    }

    void stub()
    {
        for (const double factor : {0.05, 0.099}) {
            const QSize size(900, 300);
            const QImage image = painted(size, 100.0, factor);
            const KROsmScaleRenderer renderer(100.0, size);
            const QRectF label = renderer.textRect(image.rect(), factor).normalized();
            const QRectF box(QPointF(0, label.top()), QPointF(label.right(), 300 - 10 * factor));
            const QRect line = KRTestPicture::boundsOfDark(image);
            QVERIFY(line.height() == 1 || line.height() == 2);
            QVERIFY(qAbs(QRectF(line).center().y() - label.center().y()) <= 1.0);
            QVERIFY(qAbs(line.left() - box.center().x()) <= 1.5);
            QVERIFY(qAbs(line.right() - box.right()) <= 4.0); // the pattern may end in a gap
            const QRect paintedBounds = KRTestPicture::boundsOfPainted(image);
            QCOMPARE(paintedBounds.left(), 0);
            QVERIFY(box.adjusted(0, -1, 1, 1).toAlignedRect().contains(paintedBounds));
        }
    }

    void paintsNothing()
    {
        const KRTestTable<double, double> table{
            {"no scale", 0.0, 1.0},          {"negative scale", -100.0, 1.0},
            {"infinite scale", qInf(), 1.0}, {"scale is no number", qQNaN(), 1.0},
            {"factor 0", 100.0, 0.0},        {"factor is no number", 100.0, qQNaN()},
        };
        table.forEach([](double pixelsPerKilometre, double factor) {
            QVERIFY(KRTestPicture::boundsOfPainted(painted(QSize(900, 300), pixelsPerKilometre, factor)).isNull());
            QImage none;
            KROsmScaleRenderer(100.0, QSize(900, 300)).renderScale(&none, 1.0);
            KROsmScaleRenderer(100.0, QSize(900, 300)).renderScale(nullptr, 1.0);
            QVERIFY(none.isNull());
        });
    }
};

template class KRTestRegistration<tst_KROsmScaleRenderer>;

#include "tst_KROsmScaleRenderer.moc"
