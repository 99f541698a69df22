#pragma once

#include "KRAxis.h"
#include "KRElevationProfile.h"

#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGeoPosition.h>

#include <QFutureWatcher>
#include <QPixmap>
#include <QSharedPointer>
#include <QWidget>

/**
 * Draws the elevations of a track over its way.
 *
 * A marker follows the pointer, or the arrow keys while the view has the focus (Page Up and Page Down by a tenth, Home
 * and End, Escape to hide it); elevation, time and speed at the marker stand above. Large tracks are read in another
 * thread; until that is done the view shows what it has shown before, without a marker.
 */
class KRProfileView : public QWidget
{
    Q_OBJECT

public:
    explicit KRProfileView(QWidget *parent = nullptr);

    /// Shared and cheap. A track that is equal to the present one changes nothing.
    void setTrack(const KRGPXTrack &track);
    /// No track at all.
    void clear();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// Of the marker; not valid when it is hidden.
    void positionHovered(const KRGeoPosition &position);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    using SharedProfile = QSharedPointer<const KRElevationProfile>;

    void takeProfile(const SharedProfile &profile);
    bool isShowing() const;
    void setMarker(int index);
    /// By pixels to the right, at least by one point.
    void moveMarker(double pixels);

    QString emptyText() const;
    QString markerText() const;
    void layOutAxes();
    void updatePicture();
    void paintAxes(QPainter &painter) const;
    void paintLines(QPainter &painter) const;
    void paintMarker(QPainter &painter) const;

    KRGPXTrack m_track;
    bool m_hasTrack = false;
    QFutureWatcher<SharedProfile> m_reader;
    bool m_isReading = false; ///< until the profile of the track is shown, even if it has been read
    SharedProfile m_profile;
    int m_marker = -1;

    KRAxis m_wayAxis;
    KRAxis m_elevationAxis;
    double m_wayUnit = 1.0; ///< kilometres in the unit of the axis
    QPixmap m_picture;
};
