#include "KRBaseMapGround.h"
#include "KRMapComposition.h"
#include "KRNamedTrack.h"
#include "KRPictureFile.h"
#include "KRTest.h"
#include "KRTestMap.h"
#include "KRTestPicture.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QPainter>
#include <QSvgRenderer>

namespace {

/// An area, a dashed line across the date line, and a place.
KRGPXTrackSelection tracks()
{
    KRGPXConfiguredTrack line =
        namedTrack({{-10.0, 172.0}, {-18.0, -176.0}}, LineStringTrackShape, Qt::darkRed, QStringLiteral("Fähre <2>"));
    KRGPXTrackConfiguration dashed = line.configuration();
    dashed.setPenStyle(KRPenStyle(Qt::DashLine));
    line.setConfiguration(dashed);
    KRGPXTrackSelection selection;
    selection.addTrack(namedTrack({{-16.0, 171.0}, {-20.0, 172.0}, {-19.0, 179.0}}, PolygonTrackShape, Qt::darkBlue));
    selection.addTrack(line);
    selection.addTrack(namedTrack({{-12.0, -179.0}}, PointTrackShape, Qt::magenta));
    return selection;
}

const KRGeoPositionRect fijiArea = KRTestMap{-21.0, -9.0, 170.0, -175.0}.area();

QImage onWhite(const QSize &size, const std::function<void(QPainter *painter)> &paint)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(&painter);
    return image;
}

QImage drawn(const QByteArray &bytes, const QByteArray &format, const QSize &size)
{
    if (format == "svg") {
        QSvgRenderer renderer(bytes);
        return renderer.isValid() ? onWhite(size, [&](QPainter *painter) { renderer.render(painter); }) : QImage();
    }
    QProcess program;
    program.start(QStringLiteral("pdftoppm"),
                  {QStringLiteral("-png"), QStringLiteral("-scale-to-x"), QString::number(size.width()),
                   QStringLiteral("-scale-to-y"), QString::number(size.height()), QStringLiteral("-")});
    program.write(bytes);
    program.closeWriteChannel();
    return program.waitForFinished(60000) ? QImage::fromData(program.readAllStandardOutput()) : QImage();
}

/// In levels of a colour channel, without what edges that are softened otherwise come to: both are made smaller.
double meanDifference(const QImage &a, const QImage &b)
{
    const auto blurred = [](const QImage &image) {
        return image.scaled(image.size() / 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGB32);
    };
    const QImage first = blurred(a);
    const QImage second = blurred(b);
    double sum = 0.0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QColor p = first.pixelColor(x, y);
            const QColor q = second.pixelColor(x, y);
            sum += qAbs(p.red() - q.red()) + qAbs(p.green() - q.green()) + qAbs(p.blue() - q.blue());
        }
    }
    return sum / 3.0 / (first.width() * first.height());
}

} // namespace

class tst_KRMapComposition : public QObject
{
    Q_OBJECT

private slots:
    void svgLooksLikeThePicture() { compareWithPicture("svg", true); }
    void pdfLooksLikeThePicture()
    {
        const bool canDrawPages = !QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty();
        compareWithPicture("pdf", canDrawPages);
        if (!canDrawPages)
            QSKIP("the program that draws pages is not installed");
    }

    void paintsIntoAnyCorner()
    {
        const QSize size(300, 200);
        KRMapComposition map(tracks(), fijiArea, size, 1.0);
        KRBaseMapGround ground;
        map.setGround(&ground);
        const QImage sheet = onWhite(QSize(900, 700), [&](QPainter *painter) {
            painter->translate(100.0, 50.0);
            painter->scale(2.0, 2.0);
            map.paint(painter);
            QCOMPARE(painter->transform().m11(), 2.0);
            QVERIFY(!painter->hasClipping());
        });
        QCOMPARE(KRTestPicture::boundsOfPainted(sheet), QRect(QPoint(100, 50), 2 * size));
        const QImage cut =
            sheet.copy(QRect(QPoint(100, 50), 2 * size)).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QVERIFY(meanDifference(cut, map.render()) < 1.5);
    }

    void largeGroundsAreReduced()
    {
        const KRTestTable<QSize, int, bool, bool> table{
            {"small", {6000, 6000}, 60, true, false},
            {"cropped", {20000, 2000}, 60, true, true},
            {"lines and areas", {32767, 32767}, 255, true, false},
            {"no map", {32767, 32767}, 60, false, false},
        };
        table.forEach([](const QSize &size, int croppingOpacity, bool hasGround, bool isReduced) {
            KRGPXTrackSelection selection = tracks();
            selection.setCroppingOpacity(croppingOpacity);
            KRMapComposition map(selection, fijiArea, size, 1.0);
            KRBaseMapGround ground;
            map.setGround(hasGround ? &ground : nullptr);
            QCOMPARE(map.isGroundReduced(), isReduced);
        });
    }

private:
    static void compareWithPicture(const QByteArray &format, bool canBeDrawn)
    {
        const KRTestTable<int, double, bool> table{
            {"map", 255, 1.0, true},
            {"cropped map", 60, 1.0, true},
            {"high density", 255, 2.0, true},
            {"tracks alone", 255, 1.5, false},
        };
        table.forEach([&](int croppingOpacity, double factor, bool hasGround) {
            KRGPXTrackSelection selection = tracks();
            selection.setCroppingOpacity(croppingOpacity);
            const QSize size(901, 602);
            KRMapComposition map(selection, fijiArea, size, factor);
            KRBaseMapGround ground;
            map.setGround(hasGround ? &ground : nullptr);
            map.setLabels(hasGround);
            map.setLegend(hasGround);
            const QImage picture = onWhite(size, [&](QPainter *painter) { painter->drawImage(0, 0, map.render()); });
            const QByteArray bytes = KRPictureFile::encode(map, format, QStringLiteral("Fähre <1>"));
            // It holds lines and no picture of them, and the letters.
            QCOMPARE(bytes.contains(format == "pdf" ? "/Subtype /Image" : "<image"), croppingOpacity < 255);
            QVERIFY(format == "svg" || !hasGround || bytes.contains("/FontFile2"));
            if (!canBeDrawn)
                return;
            const QImage document = drawn(bytes, format, size);
            QCOMPARE(document.size(), size);
            const double difference = meanDifference(document, picture);
            QVERIFY2(difference < (hasGround ? 1.6 : 0.2), qPrintable(QString::number(difference)));
        });
    }
};

template class KRTestRegistration<tst_KRMapComposition>;

#include "tst_KRMapComposition.moc"
