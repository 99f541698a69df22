#include <KRGUIWidgets/KRIconRegistry.h>

#include "KRTest.h"
#include "KRTestPicture.h"

#include <QApplication>
#include <QPainter>
#include <QToolButton>

namespace {

/// The color of the pixel with the greatest opacity.
QColor inkOf(const QImage &image)
{
    QColor ink = Qt::transparent;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > ink.alpha())
                ink = image.pixelColor(x, y);
        }
    }
    return ink;
}

} // namespace

class tst_KRIconRegistry : public QObject
{
    Q_OBJECT

private slots:
    void sharesIcons()
    {
        QToolButton first;
        QToolButton second;
        KRIconRegistry::instance()->setIcon(&first, QStringLiteral("ico_fit_map"));
        KRIconRegistry::instance()->setIcon(&second, QStringLiteral("ico_fit_map"));
        QVERIFY(!first.icon().isNull());
        QCOMPARE(first.icon().cacheKey(), second.icon().cacheKey());
        QCOMPARE(first.icon().pixmap(16).cacheKey(), second.icon().pixmap(16).cacheKey());
    }

    void followsThePalette()
    {
        const QPalette before = QApplication::palette();
        QPalette palette = before;
        palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::yellow);
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::green);
        palette.setColor(QPalette::Active, QPalette::HighlightedText, Qt::red);
        const QIcon icon = KRIconRegistry::instance()->icon(QStringLiteral("ico_deleteListItem"));
        const QColor usual = inkOf(icon.pixmap(32).toImage());
        QApplication::setPalette(palette);
        const QColor normal = inkOf(icon.pixmap(32).toImage());
        const QColor disabled = inkOf(icon.pixmap(32, QIcon::Disabled).toImage());
        const QColor selected = inkOf(icon.pixmap(32, QIcon::Selected).toImage());
        QApplication::setPalette(before);
        QCOMPARE(usual, before.color(QPalette::Active, QPalette::ButtonText));
        QCOMPARE(normal, QColor(Qt::yellow));
        QCOMPARE(disabled, QColor(Qt::green));
        QCOMPARE(selected, QColor(Qt::red));
    }

    void isSharpAtEverySize()
    {
        const KRTestTable<QSize, double> table{
            {"list row", QSize(16, 16), 1.0},
            {"tool bar, twice the pixels", QSize(24, 24), 2.0},
            {"wide: stays in the middle", QSize(90, 30), 1.0},
        };
        table.forEach([](const QSize &size, double ratio) {
            QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(ratio);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            KRIconRegistry::instance()->icon(QStringLiteral("ico_fit_map")).paint(&painter, QRect(QPoint(0, 0), size));
            painter.end();
            const QRect drawn = KRTestPicture::boundsOf(image, [](const QColor &color) { return color.alpha() > 0; });
            const int side = qMin(image.width(), image.height());
            QVERIFY(drawn.height() > side * 3 / 4 && drawn.height() <= side);
            QVERIFY(drawn.width() > side * 3 / 4 && drawn.width() <= side);
            QVERIFY(qAbs(drawn.center().x() - image.rect().center().x()) <= 1);
            // An enlarged picture would have no full pixels left beside its blurred edges.
            QCOMPARE(inkOf(image).alpha(), 255);
        });
    }

    void warnsOfUnknownKeys()
    {
        QTest::ignoreMessage(QtWarningMsg, ":/icons/ico_nowhere.svg: no such icon");
        QVERIFY(KRIconRegistry::instance()->icon(QStringLiteral("ico_nowhere")).isNull());
    }
};

template class KRTestRegistration<tst_KRIconRegistry>;

#include "tst_KRIconRegistry.moc"
