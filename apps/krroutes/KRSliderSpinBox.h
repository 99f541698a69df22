#pragma once

#include <QWidget>

class QSlider;
class QSpinBox;

/**
 * A whole number that is chosen by a slider or typed; both always show the same.
 *
 * The slider covers the usual values only; typing reaches all. Every step of the slider is announced.
 */
class KRSliderSpinBox : public QWidget
{
    Q_OBJECT

public:
    /// Numbers from 0 to @p maximum, on the slider to @p usualMaximum. @p suffix is the unit, with its blank.
    KRSliderSpinBox(int maximum, int usualMaximum, const QString &suffix, QWidget *parent = nullptr);

    int value() const;
    /// Announces nothing. What lies outside is shown as the nearest number.
    void showValue(int value);

signals:
    /// By the user.
    void valueChanged(int value);

private:
    void takeValue(int value);

    QSlider *const m_slider;
    QSpinBox *const m_spinBox;
};
