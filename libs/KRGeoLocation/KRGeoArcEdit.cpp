#include "KRGeoArcEdit.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QSpinBox>

namespace {

constexpr int maximumDegrees = 360;
constexpr double maximumSeconds = 59.999;
constexpr int negativeHemisphere = 1; // index in the combo box

} // namespace

KRGeoArcEdit::KRGeoArcEdit(QWidget *parent, bool latitude)
    : QWidget(parent), m_degrees(new QSpinBox(this)), m_minutes(new QSpinBox(this)),
      m_seconds(new QDoubleSpinBox(this)), m_hemisphere(new QComboBox(this))
{
    m_degrees->setRange(-maximumDegrees, maximumDegrees);
    m_degrees->setSingleStep(1);
    m_degrees->setSuffix(QStringLiteral("°"));
    m_degrees->setMinimumWidth(60);
    m_degrees->setWrapping(true);

    m_minutes->setRange(0, 59);
    m_minutes->setSingleStep(10);
    m_minutes->setSuffix(QStringLiteral("'"));
    m_minutes->setMinimumWidth(50);
    m_minutes->setWrapping(true);

    // Before the range, which is rounded to the decimals that there are.
    m_seconds->setDecimals(3);
    m_seconds->setRange(0.0, maximumSeconds);
    m_seconds->setSingleStep(10.0);
    m_seconds->setSuffix(QStringLiteral("\""));
    m_seconds->setMinimumWidth(80);
    m_seconds->setWrapping(true);

    if (latitude) {
        m_hemisphere->addItem(QIcon(), tr("Nord", "COMBOBOX  Coordinate/Nautical bearing"), 1);
        m_hemisphere->addItem(QIcon(), tr("Süd", "COMBOBOX  Coordinate/Nautical bearing"), -1);
    } else {
        m_hemisphere->addItem(QIcon(), tr("Ost", "COMBOBOX  Coordinate/Nautical bearing"), 1);
        m_hemisphere->addItem(QIcon(), tr("West", "COMBOBOX  Coordinate/Nautical bearing"), -1);
    }

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(5);
    layout->addWidget(m_degrees);
    layout->addWidget(m_minutes);
    layout->addWidget(m_seconds);
    layout->addWidget(m_hemisphere);
}

KRGeoArcEdit::~KRGeoArcEdit() = default;

KRGeoArc KRGeoArcEdit::geoArc() const
{
    const double sign = m_hemisphere->currentIndex() == negativeHemisphere ? -1.0 : 1.0;
    return sign * m_degrees->value() + (sign * m_minutes->value()) / 60.0 + sign * m_seconds->value() / 3600.0;
}

void KRGeoArcEdit::setGeoArc(const KRGeoArc &angle)
{
    // A spin box that wraps takes what is beyond its end for the other end.
    m_degrees->setValue(qAbs(qBound(-maximumDegrees, angle.degree(), maximumDegrees)));
    m_minutes->setValue(qAbs(angle.minute()));
    m_seconds->setValue(qMin(qAbs(angle.second()), maximumSeconds));
    m_hemisphere->setCurrentIndex(angle.degree() < 0 ? negativeHemisphere : 0);
}
