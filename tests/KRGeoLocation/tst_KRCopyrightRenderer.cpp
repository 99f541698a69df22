#include <KRGeoLocation/KRCopyrightRenderer.h>

#include "KRTest.h"
#include "KRTestPicture.h"

#include <QFontMetrics>
#include <QImage>

namespace {

/// A box of RGB 225 with alpha 180 over white: 225 * 180 / 255 + 255 * 75 / 255.
constexpr int boxLightness = 234;

QImage painted(double factor)
{
    QImage image(3000, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    KRCopyrightRenderer().renderCopyRight(&image, factor);
    return image;
}

} // namespace

class tst_KRCopyrightRenderer : public QObject
{
    Q_OBJECT

private slots:
    void box()
    {
        const KRTestTable<double, QRect, QPointF> table{
            // The right and bottom of a QRect are its last pixels.
            {"normal screen", 1.0, QRect(0, 0, 900, 300), QPointF(889, 289)},
            {"twice as fine", 2.0, QRect(0, 0, 900, 300), QPointF(879, 279)},
            {"area elsewhere", 1.0, QRect(-100, 50, 900, 300), QPointF(789, 339)},
        };
        table.forEach([](double factor, const QRect &area, QPointF bottomRight) {
            const KRCopyrightRenderer renderer;
            QCOMPARE(renderer.copyrightFont(factor).family(), QStringLiteral("Arial"));
            QCOMPARE(renderer.copyrightFont(factor).pointSizeF(), 24.0 * factor);
            const QFontMetrics normal(renderer.copyrightFont(1.0));
            const QSize textSize = normal.size(Qt::TextSingleLine, renderer.copyrightText());
            const QRectF box = renderer.copyrightRect(area, factor);
            QCOMPARE(box.width(), (textSize.width() + 20) * factor);
            QCOMPARE(box.height(), (textSize.height() + 5) * factor);
            QCOMPARE(box.bottomRight(), bottomRight);
        });
    }

    void pill()
    {
        for (const double factor : {1.0, 2.0, 0.5}) {
            const QImage image = painted(factor);
            const QRectF box = KRCopyrightRenderer().copyrightRect(image.rect(), factor);
            // The outline is a pixel wide, half of it outside.
            const QRectF outer = box.adjusted(-1, -1, 1, 1);
            QVERIFY(outer.toAlignedRect().contains(KRTestPicture::boundsOfPainted(image)));
            QVERIFY(KRTestPicture::boundsOfPainted(image).contains(box.adjusted(1, 1, -1, -1).toRect()));

            const QPoint leftEnd = QPointF(box.left() + 2 * factor + 1, box.center().y()).toPoint();
            QVERIFY(qAbs(image.pixelColor(leftEnd).lightness() - boxLightness) <= 2);
            for (const QPointF &corner :
                 {box.topLeft() + QPointF(factor, factor), box.bottomRight() - QPointF(factor, factor)})
                QCOMPARE(image.pixelColor(corner.toPoint()), QColor(Qt::white));
        }
    }

    void textIsInTheMiddle()
    {
        const QImage image = painted(1.0);
        const QRectF box = KRCopyrightRenderer().copyrightRect(image.rect(), 1.0);
        const QRectF text = KRTestPicture::boundsOfDark(image);
        QVERIFY(text.width() > box.width() / 2);
        QVERIFY(qAbs(text.center().x() - box.center().x()) < 4);
        QVERIFY(qAbs(text.center().y() - box.center().y()) < box.height() / 4);
    }

    void stub()
    {
        for (const double factor : {0.05, 0.099}) {
            const QImage image = painted(factor);
            const QRectF box = KRCopyrightRenderer().copyrightRect(image.rect(), factor);
            const QRect line = KRTestPicture::boundsOfDark(image);
            QVERIFY(line.height() == 1 || line.height() == 2);
            QVERIFY(qAbs(QRectF(line).center().y() - box.center().y()) <= 1.0);
            QVERIFY(qAbs(line.left() - box.center().x()) <= 1.5);
            QVERIFY(qAbs(line.right() - box.right()) <= 4.0); // the pattern may end in a gap
            QVERIFY(box.adjusted(-1, -1, 1, 1).toAlignedRect().contains(KRTestPicture::boundsOfPainted(image)));
            int gaps = 0;
            for (int x = line.left(); x < line.right(); ++x)
                if (image.pixelColor(x, line.top()).lightness() > image.pixelColor(x + 1, line.top()).lightness() + 20)
                    ++gaps;
            QVERIFY(gaps >= 1);
        }
    }

    void paintsNothing()
    {
        for (const double factor : {0.0, -1.0, qInf(), qQNaN()}) {
            QVERIFY(KRTestPicture::boundsOfPainted(painted(factor)).isNull());
            QImage none;
            KRCopyrightRenderer().renderCopyRight(&none, 1.0);
            KRCopyrightRenderer().renderCopyRight(nullptr, 1.0);
            QVERIFY(none.isNull());
        }
    }
};

template class KRTestRegistration<tst_KRCopyrightRenderer>;

#include "tst_KRCopyrightRenderer.moc"
