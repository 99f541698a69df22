#include "KRBaseMapGraticule.h"
#include "KRBaseMapView.h"

#include "KREnglishTexts.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

class tst_KRBaseMapGraticule : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void inEnglish();
    void linesKeepTheirDistance();
    void tooSmallForAnyLine();

private:
    static KRBaseMapView view(double south, double north, double west, double east, const QSize &size,
                              double factor = 1.0);
    static QStringList texts(const QVector<KRBaseMapGraticule::Line> &lines);
};

KRBaseMapView tst_KRBaseMapGraticule::view(double south, double north, double west, double east, const QSize &size,
                                           double factor)
{
    const KRGeoPositionRect area(KRLatitudeRange(south, north), KRLongitudeRange(west, east));
    return KRBaseMapView(KRMapProjection(area, size), size, factor);
}

QStringList tst_KRBaseMapGraticule::texts(const QVector<KRBaseMapGraticule::Line> &lines)
{
    QStringList texts;
    for (const KRBaseMapGraticule::Line &line : lines)
        texts << line.text;
    return texts;
}

void tst_KRBaseMapGraticule::texts()
{
    const KRTestTable<QList<double>, QSize, QString, QString> table{
        {"country", QList<double>{52.5, 54.5, 7.5, 10.5}, QSize(360, 400), QStringLiteral("8° O, 9° O, 10° O"),
         QStringLiteral("53° N, 54° N")},
        {"around the zero point", QList<double>{-1.5, 1.5, -1.5, 1.5}, QSize(400, 400),
         QStringLiteral("1° W, 0°, 1° O"), QStringLiteral("1° S, 0°, 1° N")},
        {"across the date line", QList<double>{-1.5, 1.5, 178.5, -178.5}, QSize(400, 400),
         QStringLiteral("179° O, 180°, 179° W"), QStringLiteral("1° S, 0°, 1° N")},
        {"minutes", QList<double>{53.09, 53.14, 8.01, 8.14}, QSize(500, 330),
         QStringLiteral("8° 02′ O, 8° 04′ O, 8° 06′ O, 8° 08′ O"), QStringLiteral("53° 06′ N, 53° 08′ N")},
        {"seconds, south-west", QList<double>{-0.00095, -0.0001, -0.0012, -0.0001}, QSize(500, 386),
         QStringLiteral("0° 00′ 04″ W, 0° 00′ 03″ W, 0° 00′ 02″ W, 0° 00′ 01″ W"),
         QStringLiteral("0° 00′ 03″ S, 0° 00′ 02″ S, 0° 00′ 01″ S")},
    };
    table.forEach(
        [&](const QList<double> &area, const QSize &size, const QString &meridians, const QString &parallels) {
            const KRBaseMapGraticule graticule(view(area.at(0), area.at(1), area.at(2), area.at(3), size));
            QCOMPARE(texts(graticule.meridians()).join(QStringLiteral(", ")), meridians);
            QCOMPARE(texts(graticule.parallels()).join(QStringLiteral(", ")), parallels);
        });
}

void tst_KRBaseMapGraticule::inEnglish()
{
    const KREnglishTexts english;
    const KRBaseMapGraticule graticule(view(-1.5, 1.5, -1.5, 1.5, QSize(400, 400)));
    QCOMPARE(texts(graticule.meridians()),
             QStringList({QStringLiteral("1° W"), QStringLiteral("0°"), QStringLiteral("1° E")}));
}

void tst_KRBaseMapGraticule::linesKeepTheirDistance()
{
    for (double degrees = 100.0; degrees > 1e-4; degrees /= 3.0) {
        for (const double factor : {1.0, 2.0}) {
            const KRBaseMapView map = view(50.0, 50.0 + degrees / 4.0, 8.0, 8.0 + degrees, QSize(2000, 1000), factor);
            const KRBaseMapGraticule graticule(map);
            for (const QVector<KRBaseMapGraticule::Line> &lines : {graticule.meridians(), graticule.parallels()}) {
                QVERIFY(degrees < 0.01 || lines.size() >= 2);
                for (int i = 1; i < lines.size(); ++i)
                    QVERIFY(qAbs(lines.at(i).pixel - lines.at(i - 1).pixel) >= 60.0 * factor);
            }
        }
    }
}

void tst_KRBaseMapGraticule::tooSmallForAnyLine()
{
    const KRBaseMapGraticule strip(view(-80.0, 80.0, -180.0, 180.0, QSize(20000, 20)));
    QVERIFY(strip.meridians().isEmpty());
    QVERIFY(strip.parallels().isEmpty());
}

static const KRTestRegistration<tst_KRBaseMapGraticule> registration;

#include "tst_KRBaseMapGraticule.moc"
