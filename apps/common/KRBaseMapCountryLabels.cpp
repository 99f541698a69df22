#include "KRBaseMapCountryLabels.h"

#include "KRBaseMapData.h"
#include "KRBaseMapView.h"
#include "KRMapLabelBoard.h"
#include "KRPathClipper.h"
#include "KRPolygon.h"

#include <QColor>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr QColor countryColor(116, 101, 90);

// Letter heights in pixels of a normal screen.
constexpr double smallestLetters = 9.0;
constexpr double largestLetters = 17.0;
constexpr double shrunk = 0.85;

constexpr int mostLines = 3;

// Square pixels of a normal screen below which a country has no name.
constexpr double smallestCountry = 150.0;
constexpr double smallestIsland = 3.0;

/// From this many pixels per degree on, an island has its name beside it however small it is.
constexpr double islandScale = 20.0;

// How many times as wide as its country a name may be when it does not fit inside.
constexpr double widthAcrossBorders = 1.15;
constexpr double widthAcrossSea = 3.5;

/// The name of a country that fills the map stands that far down, leaving the middle to what the map is made for.
constexpr double heightOfFillingName = 0.14;

/// The words of the text in that many lines of about equal length; null when there are too few words.
QString wrapped(const QString &text, int lineCount)
{
    QStringList lines = text.split(QLatin1Char(' '));
    if (lines.size() < lineCount)
        return QString();
    while (lines.size() > lineCount) {
        // Joining the two neighbours that are shortest together keeps the longest line short.
        int best = 0;
        for (int i = 1; i + 1 < lines.size(); ++i) {
            if (lines.at(i).size() + lines.at(i + 1).size() < lines.at(best).size() + lines.at(best + 1).size())
                best = i;
        }
        lines[best] += QLatin1Char(' ') + lines.takeAt(best + 1);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

KRBaseMapCountryLabels::KRBaseMapCountryLabels(const KRBaseMapView &view, Language language)
    : m_factor(view.factor()), m_pixelsPerDegree(view.worldSize() / 360.0 / view.factor())
{
    for (const KRBaseMapCountry &country : KRBaseMapData::instance()->countries()) {
        for (const Part &part : partsToName(country, view))
            addName(country, part, view.mapRect(), language);
    }
    std::stable_sort(m_names.begin(), m_names.end(), [](const Name &a, const Name &b) { return a.area > b.area; });
}

void KRBaseMapCountryLabels::addTo(KRMapLabelBoard *board) const
{
    for (const Name &name : m_names) {
        if (!tryAddInside(name, board) && !tryAddAcross(name, board) && name.isIsland)
            tryAddBeside(name, board);
    }
}

QVector<KRBaseMapCountryLabels::Part> KRBaseMapCountryLabels::partsToName(const KRBaseMapCountry &country,
                                                                          const KRBaseMapView &view) const
{
    const KRPathClipper clipper(view.mapRect());
    const double leastArea = (country.isIsland ? smallestIsland : smallestCountry) * m_factor * m_factor;
    QVector<Part> parts;
    for (const KRBaseMapPath &outline : country.outlines) {
        for (const QPolygonF &pixels : view.toPixels(outline)) {
            const QPolygonF shape = clipper.ring(pixels);
            const double area = KRPolygon::area(shape);
            if (area >= leastArea)
                parts.append({shape, area});
        }
    }
    std::stable_sort(parts.begin(), parts.end(), [](const Part &a, const Part &b) { return a.area > b.area; });

    // The largest part stands for the country; others only when they belong to another copy of the world.
    QVector<Part> named;
    for (const Part &part : std::as_const(parts)) {
        const double x = part.shape.boundingRect().center().x();
        const bool isNamed = std::any_of(named.begin(), named.end(), [&](const Part &other) {
            return std::abs(other.shape.boundingRect().center().x() - x) < view.worldSize() / 2.0;
        });
        if (!isNamed)
            named << part;
    }
    return named;
}

void KRBaseMapCountryLabels::addName(const KRBaseMapCountry &country, const Part &part, const QRectF &map,
                                     Language language)
{
    const KRLabelRoom room(part.shape);
    const bool fillsMap = part.area > 0.99 * map.width() * map.height();
    const QPointF wanted =
        fillsMap ? QPointF(map.center().x(), map.top() + heightOfFillingName * map.height()) : room.middle();
    const QString &text = language == German ? country.germanName : country.englishName;
    m_names.append({text, part.area / (m_factor * m_factor), country.isIsland, room, wanted});
}

KRMapLabel KRBaseMapCountryLabels::labelFor(const Name &name, int lineCount, double shrink) const
{
    const double letters = qBound(smallestLetters, (7.0 + std::sqrt(name.area) / 22.0) * shrink, largestLetters);
    KRMapLabel label(wrapped(name.text, lineCount), letters * m_factor, countryColor);
    label.setCapitals();
    return label;
}

bool KRBaseMapCountryLabels::tryAddInside(const Name &name, KRMapLabelBoard *board) const
{
    for (const double shrink : {1.0, shrunk}) {
        for (int lines = 1; lines <= mostLines; ++lines) {
            KRMapLabel label = labelFor(name, lines, shrink);
            if (label.text().isNull())
                break;
            for (const QPointF &place : name.room.placesFor(label.size(), name.wanted)) {
                label.moveCenter(place);
                if (board->tryAdd(label))
                    return true;
            }
        }
    }
    return false;
}

bool KRBaseMapCountryLabels::tryAddAcross(const Name &name, KRMapLabelBoard *board) const
{
    const QRectF bounds = name.room.bounds();
    const double widest = bounds.width() * (name.isIsland ? widthAcrossSea : widthAcrossBorders);
    // A name must not hide a small island.
    const double highest = bounds.height() / (name.isIsland ? 1.5 : 1.0);
    for (int lines = 1; lines <= mostLines; ++lines) {
        KRMapLabel label = labelFor(name, lines, shrunk);
        if (label.text().isNull())
            break;
        label.moveCenter(name.wanted);
        const QSizeF size = label.size();
        if (size.width() <= widest && size.height() <= highest && board->tryAdd(label))
            return true;
    }
    return false;
}

bool KRBaseMapCountryLabels::tryAddBeside(const Name &name, KRMapLabelBoard *board) const
{
    if (m_pixelsPerDegree < islandScale)
        return false;
    const QRectF bounds = name.room.bounds();
    const QPointF middle = bounds.center();
    for (int lines = 1; lines <= 2; ++lines) {
        KRMapLabel label = labelFor(name, lines, shrunk);
        if (label.text().isNull())
            break;
        const double dx = (bounds.width() + label.size().width()) / 2.0 + m_factor * 3.0;
        const double dy = (bounds.height() + label.size().height()) / 2.0 + m_factor;
        for (const QPointF &offset : {QPointF(0.0, dy), QPointF(0.0, -dy), QPointF(dx, 0.0), QPointF(-dx, 0.0)}) {
            label.moveCenter(middle + offset);
            if (board->tryAdd(label))
                return true;
        }
    }
    return false;
}
