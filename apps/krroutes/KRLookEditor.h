#pragma once

#include <KRGeoLocation/KRGPXFullShape.h>
#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <QWidget>

class KRColorButton;
class KRFullShapeChooser;
class KRPenStyleBox;
class KRSliderSpinBox;
class QCheckBox;
class QFormLayout;
class QLabel;
class QSpinBox;

/**
 * Edits how a track is drawn. Every change is announced at once, also while a slider is dragged.
 *
 * What a control cannot show, such as fractions of widths, stays as it is until that control is used.
 */
class KRLookEditor : public QWidget
{
    Q_OBJECT

public:
    explicit KRLookEditor(QWidget *parent = nullptr);

    KRGPXTrackConfiguration configuration() const { return m_configuration; }
    /**
     * Shows a look and announces nothing.
     * @param naturalShape what the points of the track suggest; it decides which shapes are offered. With auto, for
     *        looks without a track, only the marker of points can be chosen and the shape stays as it is.
     */
    void setConfiguration(const KRGPXTrackConfiguration &configuration, const KRGPXTrackShape &naturalShape);

    /// For looks that are not those of one track among others.
    void setButtonsVisible(bool visible);

signals:
    void configurationChanged(const KRGPXTrackConfiguration &configuration);
    /// The look shown is wanted for all tracks.
    void applyToAllRequested();
    /// The look shown is wanted for new tracks.
    void useAsDefaultRequested();

protected:
    /// The wheel scrolls the editor; it changes only the control that has the focus.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildShapeRows(QFormLayout *form);
    void buildLineRows(QFormLayout *form);
    void buildAreaRows(QFormLayout *form);
    void buildSmoothingRows(QFormLayout *form);
    QWidget *buildButtons();

    /// Connects a control's signal to a setter of the configuration.
    template <typename Control, typename Value, typename Setter>
    void edit(Control *control, void (Control::*changed)(Value), Setter setter);

    KRGPXTrackShape effectiveShape() const;
    void takeShape(const KRGPXFullShape &shape);
    void takeOption(KRGPXTrackDisplayOptionsEnum option, bool isOn);
    void showConfiguration();
    void showWarning();

    KRGPXTrackConfiguration m_configuration;
    KRGPXTrackShape m_naturalShape = AutoTrackShape;

    KRFullShapeChooser *m_chooser = nullptr;
    QLabel *m_shapeLabel = nullptr;
    QLabel *m_warningLabel = nullptr;
    QCheckBox *m_strokeBox = nullptr;
    QCheckBox *m_fillBox = nullptr;
    KRColorButton *m_lineColorButton = nullptr;
    KRColorButton *m_fillColorButton = nullptr;
    QWidget *m_fillColorLabel = nullptr;
    KRSliderSpinBox *m_lineWidthBox = nullptr;
    KRSliderSpinBox *m_haloWidthBox = nullptr;
    KRPenStyleBox *m_penStyleBox = nullptr;
    KRSliderSpinBox *m_smoothingBox = nullptr;
    QSpinBox *m_fixPointsBox = nullptr;
    QWidget *m_buttons = nullptr;
};
