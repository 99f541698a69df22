#pragma once

#include "KRGPXTrack.h"
#include "KRGPXTrackAspect.h"
#include "KRGPXTrackConfiguration.h"

class QDir;
class QDomElement;

/**
 * One track together with how it is drawn.
 *
 * As a track element it answers for the track. Threads may do with it what they may do with a KRGPXTrack; only the
 * default constructor, which asks the user's settings, belongs into the GUI thread. Setters tell whether anything
 * changed.
 */
class KRGEOLOCATION_EXPORT KRGPXConfiguredTrack : public KRGPXTrackElement
{
public:
    /// An empty track drawn as the user wants new tracks.
    KRGPXConfiguredTrack();
    /// A configured shape that is unknown or auto becomes the one that the points suggest.
    KRGPXConfiguredTrack(const KRGPXTrack &track, const KRGPXTrackConfiguration &configuration);
    KRGPXConfiguredTrack(const KRGPXTrackPoint &point, const KRGPXTrackConfiguration &configuration);
    /// From the element that toXml() writes; files that it names lie in @p dir. The shape stays as it is stored.
    KRGPXConfiguredTrack(const QDomElement &element, const QDir &dir);
    KRGPXConfiguredTrack(const KRGPXConfiguredTrack &other);
    KRGPXConfiguredTrack(KRGPXConfiguredTrack &&other) noexcept;
    KRGPXConfiguredTrack &operator=(const KRGPXConfiguredTrack &other);
    KRGPXConfiguredTrack &operator=(KRGPXConfiguredTrack &&other) noexcept;
    ~KRGPXConfiguredTrack() override;

    KRGPXTrack track() const { return m_track; }
    QString name() const { return m_track.name(); }
    QString description() const { return m_track.description(); }
    KRGPXTrackConfiguration configuration() const { return m_configuration; }

    QColor lineColor() const { return m_configuration.lineColor(); }
    QColor fillColor() const { return m_configuration.fillColor(); }
    KRDistance lineWidth() const { return m_configuration.lineWidth(); }
    KRDistance haloWidth() const { return m_configuration.haloWidth(); }
    KRPenStyle penStyle() const { return m_configuration.penStyle(); }
    KRGPXMarkerShape markerShape() const { return m_configuration.markerShape(); }
    int smoothingStrength() const { return m_configuration.smoothingStrength(); }
    int smoothingSteps() const { return m_configuration.smoothingSteps(); }
    bool hasDrawOption(const KRGPXTrackDisplayOptions &options) const { return m_configuration.hasDrawOption(options); }

    KRGeoPositionList allPoints() const override;
    QList<KRGeoPositionList> chunkedPoints() const override;
    bool isSinglePoint() const override;
    KRGeoPosition firstPoint() const override;
    KRGeoPosition lastPoint() const override;
    QList<QDateTime> allTimeStamps() const override;
    void visitPositions(const PositionVisitor &visit) const override;

    /// What the points suggest, whatever is configured.
    KRGPXTrackShape naturalShape() const { return m_track.naturalShape(); }
    /// As what the track is drawn: the configured shape; where that is auto, the track's own.
    KRGPXTrackShape effectiveShape() const;

    /// The points to draw: all of them, or the one in the middle when something longer is to be drawn as a point.
    KRGeoPositionList drawingPoints() const;
    /**
     * The point at @p fraction of the way, counted in points: 0 is the first, 1 the last. Flight lines and areas
     * have no way; they give the centre of their bounding box. Outside the track a default position, not valid.
     */
    KRGeoPosition positionRelativeFromStart(double fraction) const;

    /// Only of line width, line colour and track; other differences in the drawing are none.
    KRGPXTrackAspect differentAspects(const KRGPXConfiguredTrack &other) const;
    bool wouldChangeHaloToVisibleAgainst(const KRGPXConfiguredTrack &old) const;
    bool operator==(const KRGPXConfiguredTrack &other) const;
    bool operator!=(const KRGPXConfiguredTrack &other) const { return !(*this == other); }

    bool setTrack(const KRGPXTrack &track);
    /// Intended: an unknown shape in @p configuration leaves the shape as it is.
    bool setConfiguration(const KRGPXTrackConfiguration &configuration);
    bool setLineColor(const QColor &color) { return m_configuration.setLineColor(color); }
    bool setFillColor(const QColor &color) { return m_configuration.setFillColor(color); }
    bool setLineWidth(const KRDistance &width) { return m_configuration.setLineWidth(width); }
    bool setPenStyle(const KRPenStyle &style) { return m_configuration.setPenStyle(style); }
    bool setSmoothingStrength(int strength) { return m_configuration.setSmoothingStrength(strength); }
    bool setSmoothingSteps(int steps) { return m_configuration.setSmoothingSteps(steps); }
    /// Replaces a configured shape that is unknown or has the auto bit by the natural one.
    void autoConfigureTrackShape();

    /// Appends an element @p name; an existing @p dir gets a file of its own for the track, see KRGPXTrack::toXml().
    void toXml(QDomElement &parent, const QString &name, const QDir &dir) const;

private:
    KRGPXTrack m_track;
    KRGPXTrackConfiguration m_configuration;
};

Q_DECLARE_METATYPE(KRGPXConfiguredTrack)
