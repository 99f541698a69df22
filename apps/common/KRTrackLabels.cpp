#include "KRTrackLabels.h"

#include "KRLabelRoom.h"
#include "KRMapCells.h"
#include "KRMapTrackRenderer.h"
#include "KRTrackInView.h"

#include <KRGeoLocation/KRGPXLineCrowd.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// Pixels of a normal screen.
constexpr double letterHeight = 15.0;
constexpr double widestName = 320.0;
constexpr double nameMargin = 3.0;
constexpr double cellSize = 3.0;
constexpr double distanceFromLine = 2.0;
/// How many times the line width a marker is large, with its pen.
constexpr double markerLineWidths = 3.0;

/// Letters are as dark as that at least, on the light halo that they have.
constexpr double greatestLightness = 0.32;

/// Parts of the way at which a name may stand, the best first.
constexpr double fractions[] = {0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8, 0.1, 0.9, 0.0, 1.0};
/// On which side of such a place; x and y are -1, 0 or 1.
constexpr QPoint labelSides[] = {{1, 0}, {-1, 0}, {0, -1}, {0, 1}, {1, -1}, {-1, -1}, {1, 1}, {-1, 1}};

QColor labelColor(const QColor &lineColor)
{
    const QColor hsl = lineColor.toHsl();
    return QColor::fromHslF(hsl.hslHueF(), hsl.hslSaturationF(), qMin(hsl.lightnessF(), greatestLightness));
}

/// Names that find no place, before the others are not tried any more: each takes long.
constexpr int mostFailures = 3000;

/// What each character of all names has of the map, in pixels of a normal screen. Letters with what is kept free around
/// them take more; those that heap marks on them, or that take no room, do not.
constexpr double roomPerCharacter = 150.0;

/// A track that is to be named, and how much of the map its line takes.
struct NamedTrack {
    KRTrackInView view;
    const KRGPXConfiguredTrack *track;
    double width;
};

KRMapLabel labelFor(const KRGPXConfiguredTrack &track, double factor)
{
    const QString name =
        KRMapLabel::inOneLine(track.name(), KRMapLabel::font(letterHeight * factor), widestName * factor);
    return KRMapLabel(name, letterHeight * factor, labelColor(track.lineColor()));
}

double widthOf(const KRGPXConfiguredTrack &track, double factor)
{
    const double width = track.lineWidth().toDouble();
    const bool isMarker = track.effectiveShape() == PointTrackShape;
    return ((isMarker ? markerLineWidths : 1.0) * width + track.haloWidth().toDouble()) * factor;
}

/// A line that names are to be kept off.
struct KeptLine {
    QPolygonF line;
    double width;
};

/// Has names kept off the lines, the widest first, as far as each shows beside those before.
void keepOff(std::vector<KeptLine> lines, const QSize &size, KRMapCells *cells)
{
    std::stable_sort(lines.begin(), lines.end(),
                     [](const KeptLine &a, const KeptLine &b) { return a.width > b.width; });
    KRGPXLineCrowd crowd(size, lines.empty() ? 0.0 : lines.front().width);
    for (const KeptLine &kept : lines) {
        const QPolygonF &line = kept.line;
        if (line.size() == 1)
            cells->addLine(line, kept.width);
        for (int i = 1; i < line.size(); ++i) {
            const QPointF begin = line.at(i - 1);
            const QPointF way = line.at(i) - begin;
            for (const KRGPXLineCrowd::Part &part : crowd.partsThatShow(begin, line.at(i)))
                cells->addLine(QPolygonF(QVector<QPointF>{begin + way * part.first, begin + way * part.last}),
                               kept.width);
        }
    }
}

bool addInside(const NamedTrack &track, KRMapLabel label, const KRMapCells &cells, KRMapLabelBoard *board)
{
    if (track.view.area().isEmpty())
        return false;
    const KRLabelRoom room(track.view.area());
    for (const QPointF &place : room.placesFor(label.size(), room.middle())) {
        label.moveCenter(place);
        if (cells.isFree(label.box()) && board->tryAdd(label))
            return true;
    }
    return false;
}

/// @p cells are those where there is to be no name, null when any place will do.
bool addBeside(const NamedTrack &track, KRMapLabel label, const KRMapCells *cells, double factor,
               KRMapLabelBoard *board)
{
    const QPolygonF line = track.view.longestLine();
    const double away = track.width / 2.0 + (distanceFromLine + cellSize) * factor;
    const QSizeF reach = label.size() / 2.0 + QSizeF(away, away);
    for (const double fraction : fractions) {
        const QPointF place = KRTrackInView::pointAt(line, fraction);
        for (const QPoint &side : labelSides) {
            label.moveCenter(place + QPointF(side.x() * reach.width(), side.y() * reach.height()));
            if ((!cells || cells->isFree(label.box())) && board->tryAdd(label))
                return true;
        }
    }
    return false;
}

/// Of the world, where names look for places and are kept off lines. Beyond, it is narrower than the names.
int mostCopiesFor(const KRGPXConfiguredTrackList &tracks)
{
    constexpr double mostPoints = 4e6; // in all copies
    constexpr double pointsPerTrack = 10.0; // that take as much memory as one
    double points = pointsPerTrack * tracks.size();
    for (const KRGPXConfiguredTrack &track : tracks)
        track.visitPositions([&points](const KRGeoPositionSpan &positions) { points += positions.count; });
    return int(std::clamp(mostPoints / std::max(1.0, points), 3.0, 16.0));
}

} // namespace

KRMapLabelBoard KRTrackLabels::arranged(const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                                        const QSize &size, double factor, const QVector<QRectF> &keptFree)
{
    const KRMapTrackRenderer renderer(selection, projection, size, factor);
    KRMapCells cells(size, cellSize * factor);
    std::vector<KeptLine> lines;
    QVector<NamedTrack> named;
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    const int mostCopies = mostCopiesFor(tracks);
    for (const KRGPXConfiguredTrack &track : tracks) {
        const KRTrackInView view(renderer, track, size, mostCopies);
        const double width = widthOf(track, factor);
        for (const QPolygonF &line : view.lines())
            lines.push_back({line, width});
        if (!view.isEmpty() && !track.name().simplified().isEmpty())
            named.append({view, &track, width});
    }

    keepOff(std::move(lines), size, &cells);

    KRMapLabelBoard board(QRectF(QPointF(), size), nameMargin * factor);
    for (const QRectF &box : keptFree)
        board.keepFree(box);
    double room = double(size.width()) * size.height() / (roomPerCharacter * factor * factor); // in characters
    int failures = 0;
    for (auto track = named.cbegin(); track != named.cend() && failures < mostFailures && room > 0.0; ++track) {
        const KRMapLabel label = labelFor(*track->track, factor);
        const bool isPlaced = addInside(*track, label, cells, &board)
                              || addBeside(*track, label, &cells, factor, &board)
                              || addBeside(*track, label, nullptr, factor, &board);
        failures += isPlaced ? 0 : 1;
        room -= isPlaced ? label.text().size() : 0;
    }
    return board;
}
