#pragma once

#include "KRGeoLocationExport.h"

#include <KRCore/KREnumWrapper.h>

#include <QList>

class QColor;
class QDomElement;
class QIcon;
class QImage;
class QPainter;
class QPointF;
class QRectF;
class QSize;

/// The figure of a marker; the numbers are single bits.
enum KRGPXMarkerShapeEnum : int {
    NoMarkerShape = 0, ///< drawn as a circle
    DiskMarkerShape = 1, ///< ellipse with the caller's own pen
    CircleMarkerShape = 2, ///< ellipse with a thin pen
    EllipseMarkerShape = 4, ///< as the circle; has no key and is in no list
    XMarkerShape = 8, ///< a cross of two diagonal bars
    BlockMarkerShape = 16, ///< rectangle with the caller's own pen
    RectMarkerShape = 32, ///< rectangle with a thin pen; has no key
    RhombusMarkerShape = 64, ///< a square on its corner
    Star6MarkerShape = 128, ///< star with six points
    Star9MarkerShape = 256, ///< star with nine long points
    Star12MarkerShape = 512, ///< star with twelve short points
    ArrowMarkerShape = 1024, ///< the head at the end of a line, which KRGPXTrackRenderer draws; here a circle
};

/**
 * The figure that marks a point, or the arrow at the end of a line, and how to draw it.
 *
 * Lengths are pixels of the painter. Disk and block are the solid markers: they keep the caller's pen. All others
 * get a thin pen and grow by 0.4 pen widths per side, so that they look about as large as the solid ones.
 */
class KRGEOLOCATION_EXPORT KRGPXMarkerShape : public KREnumWrapper<KRGPXMarkerShapeEnum>
{
public:
    using KREnumWrapper::KREnumWrapper;
    KRGPXMarkerShape() = default;
    /// From a comma list of keys; what is no key counts as 0.
    explicit KRGPXMarkerShape(const QString &keys);

    /// From the child element "markerShape"; the disk when there is none.
    static KRGPXMarkerShape fromXml(const QDomElement &parent);

    /// The shapes to choose from for a point, in the order in which they are offered.
    static QList<KRGPXMarkerShape> allPointShapes();
    /// The shapes to choose from for a line: none, arrow.
    static QList<KRGPXMarkerShape> allLineStringShapes();

    void fillTable(KREnumToStringTable<KRGPXMarkerShapeEnum> *table) const override;

    /// Draws with the painter's pen and brush; @p rx and @p ry are half the width and half the height.
    void draw(QPainter *painter, const QPointF &centre, double rx, double ry) const;
    /// The rectangle about the centre with just these halves, without regard to the shape.
    QRectF targetRect(const QPointF &centre, double rx, double ry) const;

    /**
     * The marker on a transparent picture of @p size, which @p margin enlarges in both directions, half on each side.
     * The pen is 5 pixels wide; as in draw() only disk and block keep it, all others get one of a single pixel.
     */
    QImage createImage(const QSize &size, int margin, const QColor &pen, const QColor &fill) const;
    /// 32 x 32 pixels; empty for the arrow and for no shape.
    QIcon createIcon(const QColor &pen, const QColor &fill) const;

    /// The steps of draw(). All take the rectangle of the figure; the pen is the same for every rectangle.
    void configurePainter(QPainter *painter, const QRectF &target) const;
    void drawShape(QPainter *painter, const QRectF &target) const;
    void drawX(QPainter *painter, const QRectF &target) const;
    void drawBlock(QPainter *painter, const QRectF &target) const;
    void drawRhombus(QPainter *painter, const QRectF &target) const;
    /// @p innerRatio is the radius of the inner corners as a part of that of the @p points outer ones.
    void drawStar(QPainter *painter, const QRectF &target, int points, double innerRatio) const;

    /// Appends the child element "markerShape"; a shape without a key gets lost.
    void toXml(QDomElement &parent) const;

private:
    bool isSolid() const { return (value() & (DiskMarkerShape | BlockMarkerShape)) != 0; }
};
