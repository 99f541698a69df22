#include "KRCroppingControl.h"

#include "KRSliderSpinBox.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr int opaque = 255;

} // namespace

KRCroppingControl::KRCroppingControl(QWidget *parent)
    : QWidget(parent), m_percentBox(new KRSliderSpinBox(100, 100, tr(" %")))
{
    auto *const label = new QLabel(tr("&Umgebung:"));
    label->setBuddy(m_percentBox);
    setToolTip(tr("Wie deutlich die Karte außerhalb der Routen zu sehen ist"));
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_percentBox, 1);
    setOpacity(opaque);
    connect(m_percentBox, &KRSliderSpinBox::valueChanged, this,
            [this](int percent) { emit opacityChanged(qRound(percent * opaque / 100.0)); });
}

void KRCroppingControl::setOpacity(int opacity)
{
    m_percentBox->showValue(qRound(opacity * 100.0 / opaque));
}
