#pragma once

#include <QWidget>

class KRSliderSpinBox;

/// Chooses how much of the map outside the tracks shines through, 0 (nothing) to 255 (nothing is cropped).
class KRCroppingControl : public QWidget
{
    Q_OBJECT

public:
    explicit KRCroppingControl(QWidget *parent = nullptr);

    /// Announces nothing.
    void setOpacity(int opacity);

signals:
    /// By the user, at every step of the slider.
    void opacityChanged(int opacity);

private:
    KRSliderSpinBox *const m_percentBox;
};
