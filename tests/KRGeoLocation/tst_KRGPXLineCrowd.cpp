#include <KRGeoLocation/KRGPXLineCrowd.h>

#include "KRTest.h"

/// What is thinned must not be missed.
class tst_KRGPXLineCrowd : public QObject
{
    Q_OBJECT

private slots:
    void linesBesideTheImageTakeNoPlace()
    {
        constexpr double reach = 6.0;
        KRGPXLineCrowd crowd(QSize(200, 100), reach);
        for (int i = 0; i < 20000; ++i)
            QVERIFY(!crowd.takes(QPointF(-7.0 - i % 50, i % 100), QPointF(-50.0 - i % 70, 100.0 - i % 90)));
        for (const double x : {-5.0, 1.5, 199.0, 205.0})
            for (double y = 0.0; y < 100.0; y += 5.0)
                QVERIFY(crowd.takes(QPointF(x, y), QPointF(x, y + 5.0)));
        // across, from far beyond both sides
        QVERIFY(crowd.takes(QPointF(-1e9, -1e9), QPointF(1e9, 1e9)));
        QVERIFY(!crowd.takes(QPointF(-1e9, 0.0), QPointF(0.0, 1e9)));
        // beside it, and no less far away
        QVERIFY(crowd.takes(QPointF(-1e9 + 50.0, -1e9), QPointF(1e9 + 50.0, 1e9)));
        crowd.takes(QPointF(-1e18, -1e18 + 3e15), QPointF(1e18, 1e18)); // no place outside the squares
    }

    void anyWidthIsTaken()
    {
        for (const double reach : {-1e300, -5.0, 0.0, 1e9, 1e300})
            QVERIFY(KRGPXLineCrowd(QSize(20, 10), reach).takes(QPointF(1.0, 1.0), QPointF(5.0, 5.0)));
    }

    void longLinesAreDivided()
    {
        using Parts = QVector<double>; // beginnings and ends in turn, in pixels of a way of 400
        const KRTestTable<QPointF, QPointF, Parts> table{
            {"out of a crowd", {150.0, 53.0}, {550.0, 53.0}, {250.0, 400.0}},
            {"into a crowd", {-150.0, 53.0}, {250.0, 53.0}, {0.0, 250.0}},
            {"through it", {50.0, 53.0}, {450.0, 53.0}, {0.0, 50.0, 350.0, 400.0}},
            {"from far away", {-100.0, 53.0}, {300.0, 53.0}, {0.0, 200.0}},
            {"beside it", {0.0, 70.0}, {400.0, 70.0}, {0.0, 400.0}},
            {"more out of it than within", {250.0, 53.0}, {650.0, 53.0}, {0.0, 400.0}},
            {"a short one", {380.0, 53.0}, {410.0, 53.0}, {0.0, 400.0}},
            {"within", {120.0, 53.0}, {280.0, 53.0}, {}},
        };
        table.forEach([](const QPointF &from, const QPointF &to, const Parts &expected) {
            KRGPXLineCrowd crowd(QSize(600, 100), 1.0);
            for (int i = 0; i < 40; ++i) // not the same lines again
                crowd.takes(QPointF(100.0 + i / 14, 51.0 + i % 14 * 0.25), QPointF(400.0, 51.0 + i % 14 * 0.25));
            const std::vector<KRGPXLineCrowd::Part> parts = crowd.partsThatShow(from, to);
            QCOMPARE(int(parts.size()) * 2, expected.size());
            for (int i = 0; i < int(parts.size()); ++i) {
                constexpr double someSquares = 12.0;
                const KRGPXLineCrowd::Part &part = parts.at(std::size_t(i));
                QVERIFY(std::abs(part.first * 400.0 - expected.at(2 * i)) < someSquares);
                QVERIFY(std::abs(part.last * 400.0 - expected.at(2 * i + 1)) < someSquares);
            }
        });
    }

    void dozensOfWaysShow()
    {
        const KRTestTable<double> table{{"short lines", 4.2}, {"longer ones", 17.0}, {"one line", 400.0}};
        table.forEach([](double length) {
            KRGPXLineCrowd crowd(QSize(400, 100), 2.0);
            int firstRefused = -1;
            for (int pass = 0; pass < 100 && firstRefused < 0; ++pass) {
                bool isAnyTaken = false;
                for (double x = -0.3 * pass; x < 400.0; x += length) { // not the same lines again
                    const bool isTaken = crowd.takes(QPointF(x, 50.0), QPointF(x + length, 50.0));
                    isAnyTaken = isAnyTaken || isTaken;
                }
                firstRefused = isAnyTaken ? -1 : pass;
            }
            QVERIFY2(firstRefused >= 24 && firstRefused < 100, QByteArray::number(firstRefused).constData());
        });
    }
};

template class KRTestRegistration<tst_KRGPXLineCrowd>;

#include "tst_KRGPXLineCrowd.moc"
