#include "KRPlaceEdit.h"

#include <KRGeoLocation/KRGeoArcEdit.h>
#include <KRSamplePlaces.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

constexpr int ownPlace = 0; // index in the combo box
constexpr int negativeHemisphere = 1;

/// The editor itself takes the hemisphere from the whole degrees, so that half a degree south would be one north.
void showAngle(KRGeoArcEdit *edit, const KRGeoArc &angle)
{
    edit->setGeoArc(angle);
    if (angle.decimalDegrees() < 0.0)
        edit->findChild<QComboBox *>()->setCurrentIndex(negativeHemisphere);
}

} // namespace

KRPlaceEdit::KRPlaceEdit(const QString &title, QWidget *parent)
    : QGroupBox(title, parent), m_places(new QComboBox), m_latitude(new KRGeoArcEdit(nullptr, true)),
      m_longitude(new KRGeoArcEdit(nullptr, false))
{
    m_places->addItem(tr("Eigener Ort"));
    for (const KRBaseMapPlace &place : KRSamplePlaces::all())
        m_places->addItem(place.name);

    // Without some room to spare the units at the ends of the boxes are cut off in some styles.
    m_latitude->setMinimumWidth(m_latitude->sizeHint().width() + fontMetrics().averageCharWidth() * 6);
    auto *const form = new QFormLayout(this);
    form->addRow(tr("Ort:"), m_places);
    form->addRow(tr("Breite:"), m_latitude);
    form->addRow(tr("Länge:"), m_longitude);
    connect(m_places, qOverload<int>(&QComboBox::currentIndexChanged), this, &KRPlaceEdit::takePlace);
    // The angle editor tells nothing by itself.
    for (const KRGeoArcEdit *angle : {m_latitude, m_longitude}) {
        for (const QSpinBox *box : angle->findChildren<QSpinBox *>())
            connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &KRPlaceEdit::takeAngle);
        for (const QDoubleSpinBox *box : angle->findChildren<QDoubleSpinBox *>())
            connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &KRPlaceEdit::takeAngle);
        for (const QComboBox *box : angle->findChildren<QComboBox *>())
            connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &KRPlaceEdit::takeAngle);
    }
}

QString KRPlaceEdit::name() const
{
    return m_places->currentIndex() == ownPlace ? QString() : m_places->currentText();
}

KRGeoPosition KRPlaceEdit::position() const
{
    if (m_places->currentIndex() != ownPlace)
        return KRSamplePlaces::find(m_places->currentText()).position;
    const KRLatitude latitude = m_latitude->geoArc().decimalDegrees();
    const KRLongitude longitude = m_longitude->geoArc().decimalDegrees();
    const bool isOnGlobe = latitude.isInValidRange() && longitude.isInValidRange();
    return isOnGlobe ? KRGeoPosition(latitude, longitude) : KRGeoPosition();
}

void KRPlaceEdit::showPlace(const QString &name)
{
    const QSignalBlocker blocker(this);
    m_places->setCurrentText(name);
}

void KRPlaceEdit::showPosition(const KRGeoPosition &position)
{
    const QSignalBlocker blocker(this);
    m_places->setCurrentIndex(ownPlace);
    showAngles(position);
}

void KRPlaceEdit::takePlace()
{
    if (m_places->currentIndex() != ownPlace)
        showAngles(position());
    emit changed();
}

void KRPlaceEdit::takeAngle()
{
    const QSignalBlocker blocker(m_places);
    m_places->setCurrentIndex(ownPlace);
    emit changed();
}

void KRPlaceEdit::showAngles(const KRGeoPosition &position)
{
    // Every box of the angles tells of its change, which would make this an own place.
    const int index = m_places->currentIndex();
    const QSignalBlocker ownBlocker(this);
    showAngle(m_latitude, position.latitude());
    showAngle(m_longitude, position.longitude());
    const QSignalBlocker blocker(m_places);
    m_places->setCurrentIndex(index);
}
