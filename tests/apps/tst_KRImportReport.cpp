#include "KRImportReport.h"

#include "KRTest.h"

class tst_KRImportReport : public QObject
{
    Q_OBJECT

private slots:
    void summary()
    {
        KRImportReport report(QStringLiteral("a/b.kml"));
        QVERIFY(report.isEmpty());
        QCOMPARE(report.summary(), QString());
        report.add(KRImportReport::NetworkLink, 12, QStringLiteral(" the\nweather "));
        report.add(KRImportReport::GroundOverlay, 1);
        // In the order in which they were met, the name as one line.
        QCOMPARE(KRImportReport::describe(report.items().first()), QStringLiteral("1 Netzwerkverweis „the weather“"));
        QCOMPARE(KRImportReport::describe(report.items().last()), QStringLiteral("1 Bodenüberlagerung"));

        KRImportReport other(QStringLiteral("doc.kml"));
        other.add(KRImportReport::GroundOverlay, 0);
        other.add(KRImportReport::UnreadablePosition, 8, QStringLiteral("L"), 3);
        QCOMPARE(KRImportReport::describe(other.items().last()), QStringLiteral("3 unlesbare Positionen „L“"));
        report += other;
        QCOMPARE(report.fileName(), QStringLiteral("a/b.kml"));
        QCOMPARE(report.items().size(), 4);
        QCOMPARE(report.items().first().line, 12);
        QCOMPARE(report.summary(),
                 QStringLiteral("3 unlesbare Positionen, 2 Bodenüberlagerungen, 1 Netzwerkverweis nicht gezeichnet"));

        // It counts more than it keeps.
        const int count = 10 * KRImportReport::maximumItems;
        for (int line = 1; line <= count; ++line)
            report.add(KRImportReport::Tour, line);
        report.add(KRImportReport::Model, count + 1);
        QCOMPARE(report.count(KRImportReport::Tour), count);
        QCOMPARE(report.count(KRImportReport::Model), 1);
        QCOMPARE(report.items().size(), KRImportReport::maximumItems);
    }

    void everyKindHasTexts()
    {
        QSet<QString> keys;
        QSet<QString> summaries;
        for (int number = 0; number <= KRImportReport::OtherDocument; ++number) {
            const auto kind = static_cast<KRImportReport::Kind>(number);
            KRImportReport report;
            report.add(kind, 1);
            keys.insert(KRImportReport::key(kind));
            summaries.insert(report.summary());
            report.add(kind, 2);
            summaries.insert(report.summary());
        }
        QVERIFY(!keys.contains(QString()));
        QCOMPARE(keys.size(), KRImportReport::OtherDocument + 1);
        QCOMPARE(summaries.size(), 2 * (KRImportReport::OtherDocument + 1));
    }
};

template class KRTestRegistration<tst_KRImportReport>;

#include "tst_KRImportReport.moc"
