#include "KRMapFurniture.h"

#include "KRTest.h"
#include "KRTestMap.h"
#include "KRTestPicture.h"

#include <KRGeoLocation/KRMapProjection.h>
#include <KRGeoLocation/KROsmScaleRenderer.h>

#include <QImage>
#include <QPainter>

class tst_KRMapFurniture : public QObject
{
    Q_OBJECT

private slots:
    void barIsRightAlongTheMiddle()
    {
        // width: of the area, degrees
        const KRTestTable<double, double, double, double> table{
            {"city", 53.14, 8.1, 0.2, 1.0},
            {"high density", 51.0, 6.0, 9.0, 2.0},
            {"far north", 70.0, 20.0, 20.0, 1.0},
            {"far south", -60.0, -60.0, 25.0, 1.0},
            {"across the date line", -17.0, 175.0, 12.0, 1.0},
        };
        table.forEach([](double latitude, double west, double width, double factor) {
            const double east = KRLongitude::safeLongitude(west + width).decimalDegrees();
            const QSize picture(1600, 1200);
            const auto projection = KRTestMap{latitude - 0.01, latitude + 0.01, west, east}.projection(picture);
            const double scale = KRMapFurniture::pixelsPerKilometre(picture, projection) / factor;
            const KROsmScaleRenderer bar(KRDistance(scale), picture / factor);
            const double length = bar.strokeLength(factor);
            QVERIFY(bar.shownKilometers() <= 500.0 && length > 50.0);

            // The distance between the places under the ends of the bar, were it in the middle of the picture.
            const int middle = picture.height() / 2;
            const int left = int((picture.width() - length) / 2.0);
            const KRGeoPosition from = projection.convert(QPoint(left, middle));
            const KRGeoPosition to = projection.convert(QPoint(left + int(length), middle));
            const double kilometres = from.normalized().distance(to.normalized());
            const double tolerance = 0.01 * length + 2.0;
            QVERIFY2(qAbs(kilometres - bar.shownKilometers()) * scale * factor < tolerance,
                     qPrintable(QStringLiteral("%1 km for %2 km").arg(kilometres).arg(bar.shownKilometers())));
        });
    }

    void creditStandsAboveTheAttribution()
    {
        const QString brief = QStringLiteral("Kacheln der Stadt");
        const QString lengthy = QStringLiteral("Kacheln, die viele Leute mit vielen Namen gemacht haben ").repeated(3);
        const KRTestTable<QSize, QString, double, int> table{
            {"one line", QSize(1600, 1200), brief, 1.0, 1},
            {"several lines, high density", QSize(1600, 1200), lengthy, 2.0, 5},
            {"small picture", QSize(300, 200), brief, 1.0, 1},
        };
        table.forEach([](const QSize &size, const QString &text, double factor, int lines) {
            QImage attribution(size, QImage::Format_ARGB32_Premultiplied);
            attribution.fill(Qt::white);
            QImage credit = attribution;
            QPainter painter(&attribution);
            KRMapFurniture::paintAttribution(&painter, size, factor);
            painter.end();
            painter.begin(&credit);
            KRMapFurniture::paintCredit(&painter, size, text, factor);
            painter.end();

            const QRect place = KRTestPicture::boundsOfPainted(attribution);
            const QRect box = KRTestPicture::boundsOfPainted(credit);
            QVERIFY(box.bottom() < place.top() && place.top() - box.bottom() < place.height());
            QVERIFY(qAbs(box.right() - place.right()) <= 2);
            // Readable, on so many lines, and beside the scale bar wherever that stands.
            QVERIFY(box.height() >= 12 * lines && box.height() < 40.0 * factor * (lines + 0.5));
            for (double width = 0.01; width < 100.0; width *= 1.7) {
                const KRMapProjection projection = KRTestMap{50.0, 50.001, 0.0, width}.projection(size);
                QVERIFY(!KRMapFurniture::scaleBarBox(size, projection, factor).intersects(box));
            }
            // The letters are whole within their box.
            const QRect letters = KRTestPicture::boundsOfDark(credit);
            QVERIFY(box.adjusted(1, 1, -1, -1).contains(letters));
        });
    }
};

template class KRTestRegistration<tst_KRMapFurniture>;

#include "tst_KRMapFurniture.moc"
