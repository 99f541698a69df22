#pragma once

#include "KRGeoArc.h"

#include <QWidget>

class QComboBox;
class QDoubleSpinBox;
class QSpinBox;

/**
 * Edits a latitude or a longitude in degrees, minutes, seconds (three decimals) and hemisphere.
 *
 * Shows angles from -360 to 360 degrees; what is not valid is shown cut to that.
 */
class KRGEOLOCATION_EXPORT KRGeoArcEdit : public QWidget
{
    Q_OBJECT

public:
    /// @p latitude offers north and south, otherwise east and west.
    KRGeoArcEdit(QWidget *parent, bool latitude);
    ~KRGeoArcEdit() override;

    /// The hemisphere alone decides the sign: -8 degrees in the south are 8 degrees south.
    KRGeoArc geoArc() const;
    /// Intended: an angle between -1 and 0 degrees is shown in the northern or eastern hemisphere.
    void setGeoArc(const KRGeoArc &angle);

private:
    QSpinBox *m_degrees;
    QSpinBox *m_minutes;
    QDoubleSpinBox *m_seconds;
    QComboBox *m_hemisphere;
};
