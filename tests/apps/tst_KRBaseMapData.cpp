#include "KRBaseMapData.h"

#include "KRTest.h"

class tst_KRBaseMapData : public QObject
{
    Q_OBJECT

private slots:
    void countries()
    {
        const QVector<KRBaseMapCountry> &countries = KRBaseMapData::instance()->countries();
        QCOMPARE(countries.size(), 241);
        for (const KRBaseMapCountry &country : countries) {
            QVERIFY2(!country.outlines.isEmpty(), qPrintable(country.englishName));
            // Abbreviations of the data end in a full stop; "St. Lucia" is how German maps write it.
            QVERIFY2(!country.englishName.contains(QLatin1Char('.')), qPrintable(country.englishName));
            const QString german = QString(country.germanName).remove(QStringLiteral("St."));
            QVERIFY2(!german.isEmpty() && !german.contains(QLatin1Char('.')), qPrintable(country.englishName));
        }
        const KRTestTable<const char *, const char *, bool> table{
            {"umlaut", "Austria", "Österreich", false},
            {"abbreviated in the data", "Democratic Republic of the Congo", "Demokratische Republik Kongo", false},
            {"without a number in the data", "Kosovo", "Kosovo", false},
            {"number of another country", "Ashmore and Cartier Islands", "Ashmore- und Cartierinseln", true},
            {"island of two countries", "Ireland", "Irland", false},
        };
        table.forEach([](const char *english, const char *german, bool isIsland) {
            const KRBaseMapCountry *const country = find(english);
            QVERIFY(country);
            QCOMPARE(country->germanName, QString::fromUtf8(german));
            QCOMPARE(country->isIsland, isIsland);
        });
    }

    void nothingJumps()
    {
        const KRBaseMapData &map = *KRBaseMapData::instance();
        QVector<KRBaseMapPath> paths = map.land() + map.coasts() + map.borders();
        for (const KRBaseMapCountry &country : map.countries())
            paths += country.outlines;
        for (const KRBaseMapPath &path : paths) {
            QVERIFY(path.points().size() >= 2);
            for (int i = 1; i < path.points().size(); ++i) {
                const QPointF &a = path.points().at(i - 1);
                const QPointF &b = path.points().at(i);
                QVERIFY2(qAbs(a.x() - b.x()) < 0.5 || (a.y() == 1.0 && b.y() == 1.0),
                         "a step of more than half a turn");
                QVERIFY(b.y() >= 0.0 && b.y() <= 1.0);
            }
        }
    }

    void linesAreNeitherCutsNorDoubled()
    {
        const KRBaseMapData &map = *KRBaseMapData::instance();
        for (const KRBaseMapPath &coast : map.coasts()) {
            const QRectF &bounds = coast.bounds();
            QVERIFY2(bounds.width() > 1e-9 || bounds.height() < 1e-9, "a coast straight along a meridian");
            QVERIFY2(bounds.top() < 1.0, "a coast along the edge of the map");
        }
        // Germany and Poland meet in one line, near the mouth of the Neisse (14.7 E, 52.07 N).
        const QPointF mouth((14.7 + 180.0) / 360.0, 0.3285);
        const auto passes = [&](const KRBaseMapPath &path) {
            return std::any_of(path.points().begin(), path.points().end(),
                               [&](const QPointF &point) { return QLineF(point, mouth).length() < 0.0005; });
        };
        QCOMPARE(std::count_if(map.borders().begin(), map.borders().end(), passes), 1);
        QCOMPARE(std::count_if(map.coasts().begin(), map.coasts().end(), passes), 0);
    }

    void pathsAreUnwrapped()
    {
        const KRBaseMapPath line =
            KRBaseMapPath::line(QPolygonF({{0.98, 0.5}, {0.01, 0.6}, {0.015, 0.5}, {0.975, 0.5}}));
        QCOMPARE(line.points().at(1).x(), 1.01);
        QCOMPARE(line.points().at(3).x(), 0.975);
        const KRBaseMapPath shifted =
            KRBaseMapPath::ring(QPolygonF({{0.99, 0.5}, {0.02, 0.6}, {0.03, 0.5}, {0.99, 0.5}}));
        QCOMPARE(shifted.points().size(), 3);
        QVERIFY2(qAbs(shifted.bounds().left() + 0.01) < 1e-9, "the middle of the path decides where it lies");
        const KRBaseMapPath polar = KRBaseMapPath::ring(QPolygonF({{0.1, 0.8}, {0.5, 0.9}, {0.9, 0.8}, {0.1, 0.8}}));
        QCOMPARE(polar.points().size(), 6);
        QCOMPARE(polar.bounds().bottom(), 1.0);
        QVERIFY(KRBaseMapPath::ring(QPolygonF()).points().isEmpty());
    }

private:
    static const KRBaseMapCountry *find(const char *englishName)
    {
        for (const KRBaseMapCountry &country : KRBaseMapData::instance()->countries()) {
            if (country.englishName == QLatin1String(englishName))
                return &country;
        }
        return nullptr;
    }
};

template class KRTestRegistration<tst_KRBaseMapData>;

#include "tst_KRBaseMapData.moc"
