#include <KRGeoLocation/KRGPXTrackSmoothing.h>

#include "KRTest.h"

#include <cmath>
#include <vector>

namespace {

/// Points of a parabola: none lies on the chord between two others.
std::vector<QPointF> parabola(int count)
{
    std::vector<QPointF> points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(i, double(i) * i);
    return points;
}

std::vector<QPointF> smoothed(std::vector<QPointF> points, double weight, int steps)
{
    KRGPXTrackSmoothing(points.data(), int(points.size()), weight, steps).run();
    return points;
}

QList<int> differencesOf(const std::vector<QPointF> &before, const std::vector<QPointF> &after)
{
    QList<int> differences;
    for (size_t i = 0; i < before.size(); ++i)
        if (before[i] != after[i])
            differences.append(int(i));
    return differences;
}

} // namespace

class tst_KRGPXTrackSmoothing : public QObject
{
    Q_OBJECT

private slots:
    void movedPoints()
    {
        const KRTestTable<int, double, int, QList<int>> table{
            {"one step: all but the ends", 10, 0.5, 1, QList<int>{1, 2, 3, 4, 5, 6, 7, 8}},
            {"less than one step is one", 4, 0.5, -3, QList<int>{1, 2}},
            {"three steps: anchors at 2, 5 and 9", 10, 0.5, 3, QList<int>{1, 3, 4, 6, 7, 8}},
            {"half as many steps as points: anchors are the odd ones", 8, 0.5, 4, QList<int>{2, 4, 6}},
            {"more than half as many steps", 10, 0.5, 6, QList<int>{}},
            {"two points", 2, 0.0, 1, QList<int>{}},
            {"no points", 0, 0.0, 1, QList<int>{}},
        };
        table.forEach([](int count, double weight, int steps, const QList<int> &expected) {
            QCOMPARE(differencesOf(parabola(count), smoothed(parabola(count), weight, steps)), expected);
        });
    }

    void pullsTowardTheChord()
    {
        const KRTestTable<double, QPointF> table{
            // (0, 4) is 4 away from (0, 0) and 5 away from (3, 0): 4/9 of the way along the chord, 4/3 to the right.
            {"weight 0: onto the chord", 0.0, QPointF(4.0 / 3.0, 0.0)},
            {"a quarter of its own place", 0.25, QPointF(1.0, 1.0)},
            {"weight above 1 pushes away", 1.5, QPointF(-2.0 / 3.0, 6.0)},
        };
        table.forEach([](double weight, QPointF expected) {
            const std::vector<QPointF> points = smoothed({{0, 0}, {0, 4}, {3, 0}}, weight, 1);
            QVERIFY(std::abs(points[1].x() - expected.x()) < 1e-12);
            QVERIFY(std::abs(points[1].y() - expected.y()) < 1e-12);
        });
        // A point on both anchors has no place between them.
        const std::vector<QPointF> points = smoothed({{1, 1}, {1, 1}, {1, 1}}, 0.5, 1);
        QVERIFY(std::isnan(points[1].x()) && std::isnan(points[1].y()));
        QCOMPARE(points[2], QPointF(1, 1));
    }

    void anchorsOfManyPoints()
    {
        // 100000 points times 50000 blocks do not fit into 32 bits: every second point stays, to the end of the line.
        constexpr int count = 100000;
        const std::vector<QPointF> before = parabola(count);
        const std::vector<QPointF> after = smoothed(before, 0.5, count / 2);
        for (size_t i = 1; i + 1 < before.size(); ++i)
            QCOMPARE(after[i] == before[i], i % 2 == 1);
    }
};

template class KRTestRegistration<tst_KRGPXTrackSmoothing>;

#include "tst_KRGPXTrackSmoothing.moc"
