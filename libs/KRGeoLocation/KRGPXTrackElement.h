#pragma once

#include "KRGeoLocationExport.h"
#include "KRGeoPositionList.h"
#include "KRGeoPositionRect.h"

#include <KRCore/KRRange.h>

#include <QDateTime>
#include <QList>

#include <functional>

class QString;
class QStringView;
struct KRGeoPositionSpan;

/**
 * Whatever can be drawn as part of a track, from a single point to a selection of tracks.
 *
 * All queries are const and may run in several threads at once. The positions of an element without points are
 * empty lists; its first and last point are positions that are not valid.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackElement
{
public:
    using PositionVisitor = std::function<void(const KRGeoPositionSpan &)>;

    virtual ~KRGPXTrackElement() = default;

    /// All positions, in track order.
    virtual KRGeoPositionList allPoints() const = 0;
    /// The same positions cut into consecutive chunks for parallel work.
    virtual QList<KRGeoPositionList> chunkedPoints() const = 0;
    /// Whether there is exactly one position. This body counts allPoints().
    virtual bool isSinglePoint() const;
    virtual KRGeoPosition firstPoint() const = 0;
    virtual KRGeoPosition lastPoint() const = 0;
    /// One entry per point, in point order; invalid for a point without a time.
    virtual QList<QDateTime> allTimeStamps() const = 0;
    /// Hands over allPoints() piece by piece as columns, which saves building positions where an element keeps them
    /// that way. The columns stay in place during the call only. This body goes through allPoints().
    virtual void visitPositions(const PositionVisitor &visit) const;

    KRGeoPositionRect boundingBox() const;
    /// From the earliest to the latest time stamp. Intended: an invalid one counts, as earlier than any
    /// other, unless it comes before the first valid one.
    KRRange<QDateTime> timeFrame() const;

    /// Reads no more than seven decimals, without a decimal point no more than seven characters; 0 when unreadable.
    static double safeDouble(const QString &text);
    static double safeDouble(QStringView text);

protected:
    KRGPXTrackElement() = default;
    KRGPXTrackElement(const KRGPXTrackElement &) = default;
    KRGPXTrackElement(KRGPXTrackElement &&) noexcept = default;
    KRGPXTrackElement &operator=(const KRGPXTrackElement &) = default;
    KRGPXTrackElement &operator=(KRGPXTrackElement &&) noexcept = default;
};
