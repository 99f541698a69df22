#include "KRGPXFullShape.h"

#include <KRCore/KRValue.h>

#include <QIcon>

using KRValue::replaceIfDifferent;

namespace {

// All marker bits but 4, which no list offers, and the arrow.
constexpr auto pointMarkers = static_cast<KRGPXMarkerShapeEnum>(0x3FB);

} // namespace

KRGPXFullShape::KRGPXFullShape() = default;
KRGPXFullShape::KRGPXFullShape(const KRGPXTrackShape &trackShape, const KRGPXMarkerShape &markerShape)
    : m_trackShape(trackShape), m_markerShape(markerShape)
{ }
KRGPXFullShape::KRGPXFullShape(const KRGPXFullShape &other) = default;
KRGPXFullShape::KRGPXFullShape(KRGPXFullShape &&other) noexcept = default;
KRGPXFullShape &KRGPXFullShape::operator=(const KRGPXFullShape &other) = default;
KRGPXFullShape &KRGPXFullShape::operator=(KRGPXFullShape &&other) noexcept = default;
KRGPXFullShape::~KRGPXFullShape() = default;

bool KRGPXFullShape::operator==(const KRGPXFullShape &other) const
{
    return m_trackShape == other.m_trackShape && m_markerShape == other.m_markerShape;
}

bool KRGPXFullShape::setTrackShape(const KRGPXTrackShape &shape)
{
    return replaceIfDifferent(m_trackShape, shape);
}

bool KRGPXFullShape::setMarkerShape(const KRGPXMarkerShape &shape)
{
    return replaceIfDifferent(m_markerShape, shape);
}

void KRGPXFullShape::normalize()
{
    if (m_trackShape == PointTrackShape)
        m_markerShape &= pointMarkers;
    else if (m_trackShape == LineStringTrackShape)
        m_markerShape &= ArrowMarkerShape;
    else
        m_markerShape = NoMarkerShape;
}

KRGPXFullShape KRGPXFullShape::normalized() const
{
    KRGPXFullShape shape = *this;
    shape.normalize();
    return shape;
}

QString KRGPXFullShape::describe() const
{
    return m_trackShape.humanReadable(m_markerShape);
}

QString KRGPXFullShape::toolTip() const
{
    return m_trackShape.toolTip();
}

QIcon KRGPXFullShape::createIcon(const QColor &pen, const QColor &fill) const
{
    return m_markerShape.createIcon(pen, fill);
}
