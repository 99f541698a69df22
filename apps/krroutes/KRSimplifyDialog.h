#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrack.h>

#include <QDialog>
#include <QFutureWatcher>
#include <QSharedPointer>

class KRTrackSimplifier;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QSlider;

/// Asks how far the line of a track may move when points are left out, and tells how many are left.
class KRSimplifyDialog : public QDialog
{
    Q_OBJECT

public:
    explicit KRSimplifyDialog(const KRGPXConfiguredTrack &track, QWidget *parent = nullptr);

    /// The track itself while the points are still being measured.
    KRGPXConfiguredTrack simplified() const;

private:
    using SharedSimplifier = QSharedPointer<const KRTrackSimplifier>;

    void takeSlider(int position);
    void showState();

    KRGPXConfiguredTrack m_track;
    SharedSimplifier m_simplifier;
    QFutureWatcher<SharedSimplifier> m_measuring;
    QSlider *const m_slider;
    QDoubleSpinBox *const m_tolerance;
    QLabel *const m_state;
    QPushButton *m_okButton = nullptr;
};
