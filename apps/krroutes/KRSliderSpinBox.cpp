#include "KRSliderSpinBox.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>

KRSliderSpinBox::KRSliderSpinBox(int maximum, int usualMaximum, const QString &suffix, QWidget *parent)
    : QWidget(parent), m_slider(new QSlider(Qt::Horizontal)), m_spinBox(new QSpinBox)
{
    m_slider->setRange(0, usualMaximum);
    m_slider->setPageStep(qMax(1, usualMaximum / 10));
    m_slider->setMinimumWidth(40);
    // One stop for the Tab key is enough: the arrow keys do the same in the spin box.
    m_slider->setFocusPolicy(Qt::ClickFocus);
    m_spinBox->setRange(0, maximum);
    m_spinBox->setSuffix(suffix);
    m_spinBox->setAlignment(Qt::AlignRight);
    // Boxes under each other shall have the same width, whatever their numbers and units.
    m_spinBox->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000 px")) + 28);
    setFocusProxy(m_spinBox);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_slider, 1);
    layout->addWidget(m_spinBox);

    connect(m_slider, &QSlider::valueChanged, this, &KRSliderSpinBox::takeValue);
    connect(m_spinBox, qOverload<int>(&QSpinBox::valueChanged), this, &KRSliderSpinBox::takeValue);
}

int KRSliderSpinBox::value() const
{
    return m_spinBox->value();
}

void KRSliderSpinBox::showValue(int value)
{
    const QSignalBlocker sliderBlocker(m_slider);
    const QSignalBlocker spinBoxBlocker(m_spinBox);
    m_slider->setValue(value);
    m_spinBox->setValue(value);
}

void KRSliderSpinBox::takeValue(int value)
{
    showValue(value);
    emit valueChanged(value);
}
