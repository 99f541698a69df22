#pragma once

#include <KRGeoLocation/KRGeoPosition.h>

#include <QGroupBox>

class KRGeoArcEdit;
class QComboBox;

/// Chooses one of the places known by name, or another one by its angles.
class KRPlaceEdit : public QGroupBox
{
    Q_OBJECT

public:
    explicit KRPlaceEdit(const QString &title, QWidget *parent = nullptr);

    /// Empty for a place that was given by its angles.
    QString name() const;
    /// Not valid unless it lies on the globe, latitudes to 90 and longitudes to 180 degrees. Exactly as the table of
    /// places has it, as long as its angles have not been touched.
    KRGeoPosition position() const;

    /// Announces nothing.
    void showPlace(const QString &name);
    void showPosition(const KRGeoPosition &position);

signals:
    /// By the user.
    void changed();

private:
    void takePlace();
    void takeAngle();
    void showAngles(const KRGeoPosition &position);

    QComboBox *const m_places;
    KRGeoArcEdit *const m_latitude;
    KRGeoArcEdit *const m_longitude;
};
