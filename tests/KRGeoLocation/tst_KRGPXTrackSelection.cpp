#include <KRGeoLocation/KRGPXTrackSelection.h>

#include "KRTest.h"
#include "KRTestTrack.h"
#include "KRTestXml.h"

#include <KRGeoLocation/KRGPXTrackSelectionComparisonResult.h>

#include <climits>

using KRTestTrack::names;
using KRTestTrack::noDir;
using KRTestXml::element;

namespace {

/// A line of two points; @p name tells it from others.
KRGPXConfiguredTrack line(const QString &name, const QString &coordinates = QStringLiteral("8,53 9,54"))
{
    return {KRTestTrack::track(coordinates, LineStringTrackShape, name), KRGPXTrackConfiguration()};
}

/// Named by the single letters.
KRGPXConfiguredTrackList lines(const QString &letters)
{
    KRGPXConfiguredTrackList list;
    for (const QChar letter : letters)
        list.append(line(letter));
    return list;
}

} // namespace

class tst_KRGPXTrackSelection : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip()
    {
        KRGPXTrackSelection selection(lines(QStringLiteral("abc")));
        selection.setCroppingOpacity(-7); // stored as given
        QDomElement parent = element("<document/>");
        selection.toXml(parent, noDir);
        QCOMPARE(KRGPXTrackSelection(parent, noDir), selection);

        KRGPXTrackSelection nothing(element("<document/>"), noDir);
        QCOMPARE(nothing, KRGPXTrackSelection());
        QCOMPARE(nothing.nominalCroppingOpacity(), 255);
        QVERIFY(nothing.setCroppingOpacity(10));
        QCOMPARE(nothing.nominalCroppingOpacity(), 10);
        QCOMPARE(nothing.effectiveCroppingOpacity(), 255); // without tracks nothing is cropped
    }

    void readsTheFormerElementFirst()
    {
        const auto child = [](const QByteArray &tag, const QByteArray &name) {
            return "<" + tag + "><trk><name>" + name + "</name></trk></" + tag + ">";
        };
        const QDomElement document = element(
            "<document croppingOpacity=\"12\"><gpxtrack>" + child("configuredTrack", "c") + child("locationTrack", "a")
            + child("other", "x") + child("locationTrack", "b") + "</gpxtrack></document>");
        const KRGPXTrackSelection selection(document, noDir);
        QCOMPARE(names(selection.tracks(), {}), QStringLiteral("abc"));
        QCOMPARE(selection.effectiveCroppingOpacity(), 12);

        QDomElement parent = element("<document/>");
        selection.toXml(parent, noDir);
        const QDomElement tracks = parent.firstChildElement(QStringLiteral("gpxtrack"));
        QCOMPARE(tracks.elementsByTagName(QStringLiteral("configuredTrack")).size(), 3);
        QCOMPARE(tracks.elementsByTagName(QStringLiteral("locationTrack")).size(), 0);
    }

    void moveTrack()
    {
        const KRTestTable<int, int, KRText> table{
            {"up", 3, 1, "adbc"},
            {"beyond the end", 0, 99, "bcda"},
            {"before the start", 2, -5, "cabd"},
            {"from beyond the end", 4, 0, "abcd"},
        };
        table.forEach([](int from, int to, const QString &expected) {
            KRGPXTrackSelection selection(lines(QStringLiteral("abcd")));
            selection.moveTrack(from, to);
            QCOMPARE(names(selection.tracks(), {}), expected);
        });
    }

    void configurationsOfTheList()
    {
        KRGPXConfiguredTrackList list = lines(QStringLiteral("ab"));
        const KRGPXConfiguredTrackList before = list;
        QVERIFY(!list.setConfiguration(0, list.configuration(0)));
        QVERIFY(list.isSharedWith(before));

        KRGPXTrackConfiguration unknown = list.configuration(1);
        unknown.setTrackShape(UnknownTrackShape);
        QVERIFY(list.setConfiguration(1, unknown));
        QCOMPARE(list.configuration(1).trackShape().value(), AutoTrackShape);
        QVERIFY(!list.setConfiguration(1, unknown));
        QCOMPARE(before.configuration(1).trackShape().value(), LineStringTrackShape);
    }

    void configurationsOfTheSelection()
    {
        KRGPXTrackSelection selection(lines(QStringLiteral("ab")));
        KRGPXTrackConfiguration configuration = selection.configuration(0);
        QVERIFY(!selection.setConfiguration(configuration));
        configuration.setTrackShape(UnknownTrackShape);
        QVERIFY(selection.setConfiguration(0, configuration)); // although the track keeps its shape
        QCOMPARE(selection.configuration(0).trackShape().value(), LineStringTrackShape);

        configuration.setTrackShape(HopTrackShape);
        QVERIFY(selection.setConfiguration(1, configuration));
        QVERIFY(selection.setConfiguration(configuration)); // the first one still differs
        QVERIFY(!selection.setConfiguration(configuration));
        QCOMPARE(selection.configuration(0), configuration);

        configuration.setLineWidth(1.0);
        QVERIFY(selection.setConfiguration(configuration)); // for all of them, not only up to the first change
        QCOMPARE(selection.configuration(1), configuration);
    }

    void indicesOutsideAreIgnored()
    {
        const KRGPXTrackSelection before(lines(QStringLiteral("ab")));
        KRGPXTrackConfiguration wide;
        wide.setLineWidth(50.0);
        for (const int index : {-1, 2}) {
            KRGPXTrackSelection selection = before;
            QVERIFY(!selection.isValidRow(index));
            QVERIFY(!selection.setConfiguration(index, wide));
            selection.removeAt(index);
            selection.overrideColorOfTrack(index, 0);
            QCOMPARE(selection, before);
            QVERIFY(!selection.value(index).track().isValid());
            QCOMPARE(selection.configuration(index), KRGPXTrackConfiguration::currentDefaultConfiguration());
            KRGPXConfiguredTrackList list = before.tracks();
            QVERIFY(!list.setConfiguration(index, wide));
            QCOMPARE(before.reduceToTrackNumber(index), before);
        }
        KRGPXTrackSelection cropped = before;
        cropped.setCroppingOpacity(77);
        const KRGPXTrackSelection reduced = cropped.reduceToTrackNumber(1);
        QCOMPARE(reduced.nominalCroppingOpacity(), 77);
        QCOMPARE(names(reduced.tracks(), {}), QStringLiteral("b"));
    }

    void firstLooksAtTheFirstTrackAndLastSearches()
    {
        const KRGPXConfiguredTrack empty = line(QStringLiteral("empty"), QString());
        KRGPXTrackSelection selection;
        QVERIFY(!selection.firstPoint().isValid() && !selection.lastPoint().isValid());
        selection.addTracks({empty, line(QStringLiteral("a")), line(QString(), QStringLiteral("9,55")), empty});
        QVERIFY(!selection.firstPoint().isValid());
        QCOMPARE(selection.lastPoint(), KRGeoPosition(55.0, 9.0));
        selection.removeAt(0);
        QCOMPARE(selection.firstPoint(), KRGeoPosition(53.0, 8.0));
    }

    void joinsItsTracks()
    {
        KRGPXTrackSelection selection;
        selection.addTrack(line(QStringLiteral("a"), QStringLiteral("8,53")));
        QVERIFY(selection.isSinglePoint());
        KRGPXTrackSelection other(lines(QStringLiteral("b")));
        other.setCroppingOpacity(3);
        selection.addSelection(other);
        QVERIFY(!selection.isSinglePoint() && !other.isSinglePoint());
        QCOMPARE(selection.nominalCroppingOpacity(), 255);
        QCOMPARE(selection.allPoints(),
                 KRGeoPositionList({KRGeoPosition(53, 8), KRGeoPosition(53, 8), KRGeoPosition(54, 9)}));
        QCOMPARE(selection.allTimeStamps().size(), 3);
        KRGeoPositionList chunks;
        for (const KRGeoPositionList &chunk : selection.chunkedPoints())
            chunks.append(chunk);
        QCOMPARE(chunks, selection.allPoints());
        int visited = 0;
        selection.visitPositions([&](const KRGeoPositionSpan &positions) { visited += positions.count; });
        QCOMPARE(visited, 3);

        selection.addTrack(other.tracks().first().track());
        QCOMPARE(names(selection.tracks(), {}), QStringLiteral("abb"));
        QCOMPARE(selection.configuration(2).trackShape().value(), LineStringTrackShape);
    }

    void compare()
    {
        const KRTestTable<KRText, KRText, QList<int>, bool> table{
            {"no more than both have", "abc", "xbyz", QList<int>{0, 2}, true},
            {"against nothing", "ab", {}, QList<int>(), true},
        };
        table.forEach([](const QString &letters, const QString &others, const QList<int> &changing, bool countChanges) {
            const auto result = KRGPXTrackSelection(lines(letters)).compare(KRGPXTrackSelection(lines(others)));
            QCOMPARE(result.changingTracks(), changing);
            QCOMPARE(result.trackCountChanges(), countChanges);
            QCOMPARE(int(result.changingAspects()), result.changingTracks().isEmpty() ? 0 : int(TrackAspect));

            KRGPXConfiguredTrackList wider = lines(letters);
            wider[0].setLineWidth(1.0);
            wider[1].setLineColor(Qt::red);
            const auto aspects = wider.compare(lines(letters)).changingAspects();
            QCOMPARE(aspects, LineWidthAspect | LineColorAspect);
        });

        const KRGPXTrackSelection without(lines(QStringLiteral("ab")));
        for (const int index : {1, 2}) { // a new halo counts on tracks that both have
            KRGPXTrackSelection with(lines(QStringLiteral("abc")));
            QVERIFY(!with.wouldChangeHaloToVisibleAgainst(without));
            KRGPXTrackConfiguration configuration = with.configuration(index);
            configuration.setHaloWidth(2.0);
            with.setConfiguration(index, configuration);
            QCOMPARE(with.wouldChangeHaloToVisibleAgainst(without), index == 1);
        }
    }

    void overrideColor()
    {
        const KRTestTable<int, QRgb, QRgb> table{
            {"128 changes nothing", 128, qRgba(200, 101, 3, 255), qRgba(10, 20, 30, 40)},
            {"300", 300, qRgba(255, 236, 7, 255), qRgba(23, 46, 70, 40)},
            {"negative", -128, qRgba(0, 0, 0, 255), qRgba(0, 0, 0, 40)},
            {"as large as it gets", INT_MAX, qRgba(255, 255, 255, 255), qRgba(255, 255, 255, 40)},
        };
        table.forEach([](int factor, QRgb line, QRgb fill) {
            KRGPXConfiguredTrackList list = lines(QStringLiteral("ab"));
            list[1].setLineColor(QColor(200, 101, 3));
            list[1].setFillColor(QColor(10, 20, 30, 40));
            KRGPXTrackSelection selection(list);
            selection.overrideColorOfTrack(1, factor);
            QCOMPARE(selection.value(1).lineColor().rgba(), line);
            QCOMPARE(selection.value(1).fillColor().rgba(), fill);
            QCOMPARE(selection.value(0), list.at(0));
            QCOMPARE(list.at(1).lineColor(), QColor(200, 101, 3));
        });
    }

    void comparisonResults()
    {
        using Result = KRGPXTrackSelectionComparisonResult;
        const auto resultOf = [](const QList<int> &tracks, KRGPXTrackAspect aspects, bool countChanges = false) {
            Result result;
            for (const int track : tracks)
                result.addChangingTrack(track);
            result.setChangingAspects(aspects);
            result.setTrackCountChanges(countChanges);
            return result;
        };
        const Result first = resultOf({3}, LineWidthAspect);
        const Result second = resultOf({1, 3}, TrackAspect, true);
        const Result sum = first + second;
        QCOMPARE(sum.changingTracks(), QList<int>({3, 1, 3}));
        QCOMPARE(sum.changingAspects(), LineWidthAspect | TrackAspect);
        QVERIFY(sum.trackCountChanges() && (second + first).trackCountChanges());
        QVERIFY(!(first + first).trackCountChanges());

        // Only what is alike may be merged, and only the own count matters.
        QCOMPARE(first.isMergeCompatible(first), true);
        QCOMPARE(first.isMergeCompatible(resultOf({3}, LineColorAspect)), false);
        QCOMPARE(first.isMergeCompatible(resultOf({3}, LineWidthAspect, true)), true);
        QCOMPARE(resultOf({3}, LineWidthAspect, true).isMergeCompatible(first), false);
        QCOMPARE(resultOf({1, 2}, LineColorAspect).isMergeCompatible(resultOf({2, 1}, LineColorAspect)), false);
    }
};

template class KRTestRegistration<tst_KRGPXTrackSelection>;

#include "tst_KRGPXTrackSelection.moc"
