#pragma once

#include "KRGPXMarkerShape.h"
#include "KRGPXTrackDisplayOptions.h"
#include "KRGPXTrackShape.h"
#include "KRGeoLocationExport.h"

#include <KRCore/KRDistance.h>
#include <KRCore/KRPenStyle.h>

#include <QColor>
#include <QMetaType>

class QDebug;
class QDomElement;

/**
 * Everything that says how one track is drawn.
 *
 * Widths are pixels of the map image at rendering factor 1. The smoothing strength is the percentage of its own place
 * that a point keeps: 100 leaves the line as it is, 0 makes it straight between the points that stay. The smoothing
 * steps are the number of points that stay, evenly spread and the last one of the line among them; the first stays
 * too and is not counted. See KRGPXTrackSmoothing. Setters take any value and tell whether anything changed.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackConfiguration
{
public:
    /// The same as defaultValue().
    KRGPXTrackConfiguration();
    KRGPXTrackConfiguration(const QColor &lineColor, const KRDistance &lineWidth, const QColor &fillColor,
                            const KRDistance &haloWidth, const KRGPXTrackDisplayOptions &displayOptions,
                            const KRGPXMarkerShape &markerShape, const KRGPXTrackShape &trackShape,
                            const KRPenStyle &penStyle, int smoothingStrength, int smoothingSteps);
    KRGPXTrackConfiguration(const KRGPXTrackConfiguration &other);
    KRGPXTrackConfiguration(KRGPXTrackConfiguration &&other) noexcept;
    KRGPXTrackConfiguration &operator=(const KRGPXTrackConfiguration &other);
    KRGPXTrackConfiguration &operator=(KRGPXTrackConfiguration &&other) noexcept;
    virtual ~KRGPXTrackConfiguration();

    /// The built-in one: an orange line 10 pixels wide without halo, the shape to be detected.
    static KRGPXTrackConfiguration defaultValue();
    /// The one that the user has chosen for new tracks. GUI thread only.
    static KRGPXTrackConfiguration currentDefaultConfiguration();

    /**
     * From the children and attributes that toXml() writes. What is missing: width 10, fill colour the line colour
     * half as opaque, halo one line width when areas are filled and two otherwise, and the rest as in defaultValue().
     * An unreadable width is 0; a missing line colour and any unreadable colour are transparent black.
     */
    static KRGPXTrackConfiguration fromXml(const QDomElement &parent);
    /// From the text of serialize(); of a broken text, from the part before the fault. A text of more than 4096
    /// characters, ten times as long as any of ours, counts as empty.
    static KRGPXTrackConfiguration deserialize(const QString &text);

    /**
     * From a KML "Style" element. KML's line widths are multiplied by 6; lines too thin to be seen become 7.7 wide.
     * A colour that is missing or wholly transparent is made from the other one.
     */
    static KRGPXTrackConfiguration fromKml(const QDomElement &style);
    /// The child "color": aabbggrr as KML has it, or "#AARRGGBB". Transparent black when missing or unreadable.
    static QColor decodeColor(const QDomElement &element);
    /// The child "width"; 0 when missing or unreadable.
    static double decodeWidth(const QDomElement &element);

    /// @p color with its alpha (0 ... 1) times @p factor, limited to 0 ... 1.
    static QColor multiplyAlpha(const QColor &color, double factor);

    QColor lineColor() const { return m_lineColor; }
    KRDistance lineWidth() const { return m_lineWidth; }
    KRPenStyle penStyle() const { return m_penStyle; }
    QColor fillColor() const { return m_fillColor; }
    KRDistance haloWidth() const { return m_haloWidth; }
    KRGPXTrackDisplayOptions currentDisplayOptions() const { return m_displayOptions; }
    KRGPXMarkerShape markerShape() const { return m_markerShape; }
    KRGPXTrackShape trackShape() const { return m_trackShape; }
    int smoothingStrength() const { return m_smoothingStrength; }
    int smoothingSteps() const { return m_smoothingSteps; }

    /// True when the current display options have at least one of @p options.
    bool hasDrawOption(const KRGPXTrackDisplayOptions &options) const;
    /// True when a halo would appear where @p old has none.
    bool wouldChangeHaloToVisibleAgainst(const KRGPXTrackConfiguration &old) const;

    /// Exact in every field; colours also differ by how they are specified and beyond their 8 bits.
    bool operator==(const KRGPXTrackConfiguration &other) const;
    bool operator!=(const KRGPXTrackConfiguration &other) const { return !(*this == other); }

    bool setLineColor(const QColor &color);
    bool setLineWidth(const KRDistance &width);
    bool setPenStyle(const KRPenStyle &style);
    bool setFillColor(const QColor &color);
    bool setHaloWidth(const KRDistance &width);
    bool setCurrentDisplayOptions(const KRGPXTrackDisplayOptions &options);
    bool setMarkerShape(const KRGPXMarkerShape &shape);
    bool setTrackShape(const KRGPXTrackShape &shape);
    bool setSmoothingStrength(int strength);
    bool setSmoothingSteps(int steps);

    /// Appends children to @p parent and sets attributes on it. Fractions of the widths get lost.
    void toXml(QDomElement &parent) const;
    /// The XML as one text without white space; equal configurations give equal texts.
    QString serialize() const;

private:
    QColor m_lineColor{0xff, 0x91, 0x00};
    KRDistance m_lineWidth = 10.0;
    KRPenStyle m_penStyle = Qt::SolidLine;
    QColor m_fillColor{0xfc, 0xa4, 0x04, 0x50};
    KRDistance m_haloWidth = 0.0;
    KRGPXTrackDisplayOptions m_displayOptions = StrokeDisplayOption;
    KRGPXMarkerShape m_markerShape = DiskMarkerShape;
    KRGPXTrackShape m_trackShape = AutoTrackShape;
    int m_smoothingStrength = 100;
    int m_smoothingSteps = 1;
};

KRGEOLOCATION_EXPORT QDebug operator<<(QDebug debug, const KRGPXTrackConfiguration &configuration);

Q_DECLARE_METATYPE(KRGPXTrackConfiguration)
