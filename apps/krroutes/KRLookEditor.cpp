#include "KRLookEditor.h"

#include "KRColorButton.h"
#include "KRFullShapeChooser.h"
#include "KRPenStyleBox.h"
#include "KRSliderSpinBox.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

constexpr int largestWidth = 1000; // pixels
constexpr int usualLineWidth = 40;
constexpr int usualHaloWidth = 60;
constexpr int unsmoothed = 100; // per cent of their own place that points keep
constexpr int mostFixPoints = 1000000;

void addRow(QFormLayout *form, const QString &text, QWidget *field, const QString &toolTip)
{
    form->addRow(text, field);
    if (!toolTip.isEmpty())
        field->setToolTip(toolTip);
}

/// The dock is often lower than all the rows.
QScrollArea *spawnScrollArea(QWidget *content)
{
    auto *const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    area->setWidget(content);
    // What lies behind shall be seen, for example a tab.
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    area->setMinimumWidth(content->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    return area;
}

} // namespace

KRLookEditor::KRLookEditor(QWidget *parent) : QWidget(parent)
{
    auto *const content = new QWidget;
    auto *const rows = new QVBoxLayout(content);
    auto *const form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    buildShapeRows(form);
    buildLineRows(form);
    buildAreaRows(form);
    buildSmoothingRows(form);
    rows->addLayout(form);
    rows->addStretch(1);
    m_buttons = buildButtons();
    setFocusProxy(m_chooser);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(spawnScrollArea(content), 1);
    layout->addWidget(m_buttons);
    for (QWidget *control : content->findChildren<QWidget *>())
        control->installEventFilter(this);
    showConfiguration();
}

void KRLookEditor::setConfiguration(const KRGPXTrackConfiguration &configuration, const KRGPXTrackShape &naturalShape)
{
    m_configuration = configuration;
    m_naturalShape = naturalShape;
    showConfiguration();
}

void KRLookEditor::setButtonsVisible(bool visible)
{
    m_buttons->setVisible(visible);
}

bool KRLookEditor::eventFilter(QObject *watched, QEvent *event)
{
    const auto *const control = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Wheel || (control && control->hasFocus()))
        return QWidget::eventFilter(watched, event);
    event->ignore();
    return true;
}

template <typename Control, typename Value, typename Setter>
void KRLookEditor::edit(Control *control, void (Control::*changed)(Value), Setter setter)
{
    connect(control, changed, this, [this, setter](const auto &value) {
        const bool hasChanged = setter(m_configuration, value);
        if (!hasChanged)
            return;
        showConfiguration();
        emit configurationChanged(m_configuration);
    });
}

void KRLookEditor::buildShapeRows(QFormLayout *form)
{
    m_chooser = new KRFullShapeChooser;
    m_shapeLabel = new QLabel;
    m_shapeLabel->setWordWrap(true);
    m_warningLabel = new QLabel;
    m_warningLabel->setWordWrap(true);
    m_warningLabel->setObjectName(QStringLiteral("warningLabel"));
    addRow(form, tr("For&m:"), m_chooser, QString());
    form->addRow(QString(), m_shapeLabel);
    form->addRow(m_warningLabel);
    connect(m_chooser, &KRFullShapeChooser::shapeChosen, this, &KRLookEditor::takeShape);
}

void KRLookEditor::buildLineRows(QFormLayout *form)
{
    m_strokeBox = new QCheckBox(tr("&Linie zeichnen"));
    m_lineColorButton = new KRColorButton(tr("Farbe der Linie"));
    m_lineWidthBox = new KRSliderSpinBox(largestWidth, usualLineWidth, tr(" px"));
    m_penStyleBox = new KRPenStyleBox;
    m_haloWidthBox = new KRSliderSpinBox(largestWidth, usualHaloWidth, tr(" px"));
    form->addRow(m_strokeBox);
    addRow(form, tr("Linie&nfarbe:"), m_lineColorButton, QString());
    addRow(form, tr("Bre&ite:"), m_lineWidthBox, tr("Breite der Linie, bei Punkten auch die Größe des Markers"));
    addRow(form, tr("&Strichart:"), m_penStyleBox, tr("Wie die Linie gestrichelt wird"));
    addRow(form, tr("H&of:"), m_haloWidthBox, tr("Breite des Hofes um die Linie; 0 für keinen"));

    connect(m_strokeBox, &QCheckBox::toggled, this, [this](bool isOn) { takeOption(StrokeDisplayOption, isOn); });
    edit(m_lineColorButton, &KRColorButton::colorChanged,
         [](KRGPXTrackConfiguration &look, const QColor &color) { return look.setLineColor(color); });
    edit(m_lineWidthBox, &KRSliderSpinBox::valueChanged,
         [](KRGPXTrackConfiguration &look, int width) { return look.setLineWidth(double(width)); });
    edit(m_penStyleBox, &KRPenStyleBox::penStyleChanged,
         [](KRGPXTrackConfiguration &look, const KRPenStyle &style) { return look.setPenStyle(style); });
    edit(m_haloWidthBox, &KRSliderSpinBox::valueChanged,
         [](KRGPXTrackConfiguration &look, int width) { return look.setHaloWidth(double(width)); });
}

void KRLookEditor::buildAreaRows(QFormLayout *form)
{
    m_fillBox = new QCheckBox(tr("Fläche f&üllen"));
    m_fillBox->setToolTip(tr("Nur Flächen und Punkte können gefüllt werden."));
    m_fillColorButton = new KRColorButton(tr("Farbe der Füllung"));
    form->addRow(m_fillBox);
    addRow(form, tr("&Füllfarbe:"), m_fillColorButton, QString());
    m_fillColorLabel = form->labelForField(m_fillColorButton);

    connect(m_fillBox, &QCheckBox::toggled, this, [this](bool isOn) { takeOption(FillDisplayOption, isOn); });
    edit(m_fillColorButton, &KRColorButton::colorChanged,
         [](KRGPXTrackConfiguration &look, const QColor &color) { return look.setFillColor(color); });
}

void KRLookEditor::buildSmoothingRows(QFormLayout *form)
{
    m_smoothingBox = new KRSliderSpinBox(unsmoothed, unsmoothed, tr(" %"));
    m_fixPointsBox = new QSpinBox;
    m_fixPointsBox->setRange(1, mostFixPoints);
    m_fixPointsBox->setAlignment(Qt::AlignRight);
    addRow(form, tr("&Glättung:"), m_smoothingBox,
           tr("Wie weit die Punkte auf die geraden Linien zwischen den festen Punkten rücken"));
    addRow(form, tr("Feste &Punkte:"), m_fixPointsBox,
           tr("Wie viele Punkte, gleichmäßig verteilt, beim Glätten ihren Ort behalten"));

    // People expect 0 for a line as it is; it is stored the other way round.
    edit(m_smoothingBox, &KRSliderSpinBox::valueChanged, [](KRGPXTrackConfiguration &look, int smoothing) {
        return look.setSmoothingStrength(unsmoothed - smoothing);
    });
    edit(m_fixPointsBox, qOverload<int>(&QSpinBox::valueChanged),
         [](KRGPXTrackConfiguration &look, int steps) { return look.setSmoothingSteps(steps); });
}

QWidget *KRLookEditor::buildButtons()
{
    auto *const all = new QPushButton(tr("Für all&e Routen"));
    all->setToolTip(tr("Gibt allen Routen dieses Aussehen."));
    auto *const byDefault = new QPushButton(tr("Als S&tandard"));
    byDefault->setToolTip(tr("Gibt neuen Routen dieses Aussehen."));
    connect(all, &QPushButton::clicked, this, &KRLookEditor::applyToAllRequested);
    connect(byDefault, &QPushButton::clicked, this, &KRLookEditor::useAsDefaultRequested);

    auto *const buttons = new QWidget;
    auto *const layout = new QHBoxLayout(buttons);
    layout->addWidget(all);
    layout->addWidget(byDefault);
    return buttons;
}

KRGPXTrackShape KRLookEditor::effectiveShape() const
{
    return m_configuration.trackShape() == AutoTrackShape ? m_naturalShape : m_configuration.trackShape();
}

void KRLookEditor::takeShape(const KRGPXFullShape &shape)
{
    const KRGPXTrackConfiguration before = m_configuration;
    m_configuration.setMarkerShape(shape.markerShape());
    if (m_naturalShape != AutoTrackShape) {
        m_configuration.setTrackShape(shape.trackShape());
        KRGPXTrackDisplayOptions options = m_configuration.currentDisplayOptions();
        if ((options & shape.trackShape().availableDisplayOptions()) == 0)
            options.expandTo(shape.trackShape().defaultDisplayOptions());
        m_configuration.setCurrentDisplayOptions(options);
    }
    if (m_configuration == before)
        return;
    showConfiguration();
    emit configurationChanged(m_configuration);
}

void KRLookEditor::takeOption(KRGPXTrackDisplayOptionsEnum option, bool isOn)
{
    KRGPXTrackDisplayOptions options = m_configuration.currentDisplayOptions();
    if (isOn)
        options.expandTo(option);
    else
        options.exclude(option);
    m_configuration.setCurrentDisplayOptions(options);
    showConfiguration();
    emit configurationChanged(m_configuration);
}

void KRLookEditor::showConfiguration()
{
    const KRGPXTrackShape shape = effectiveShape();
    const KRGPXTrackShape offered =
        m_naturalShape == AutoTrackShape ? KRGPXTrackShape(PointTrackShape) : m_naturalShape;
    m_chooser->offerFor(offered);
    m_chooser->showLook(m_configuration, KRGPXFullShape(m_naturalShape == AutoTrackShape ? offered : shape,
                                                        m_configuration.markerShape()));
    m_shapeLabel->setText(shape == AutoTrackShape ? tr("für Punkte; die Form wird erkannt")
                                                  : shape.humanReadable(m_configuration.markerShape()));
    m_shapeLabel->setToolTip(shape.toolTip());

    const QSignalBlocker strokeBlocker(m_strokeBox);
    const QSignalBlocker fillBlocker(m_fillBox);
    const QSignalBlocker fixPointsBlocker(m_fixPointsBox);
    m_strokeBox->setChecked(m_configuration.hasDrawOption(StrokeDisplayOption));
    m_fillBox->setChecked(m_configuration.hasDrawOption(FillDisplayOption));
    const bool canFill = shape == AutoTrackShape || (shape.availableDisplayOptions() & FillDisplayOption) != 0;
    m_fillBox->setEnabled(canFill);
    m_fillColorButton->setEnabled(canFill);
    m_fillColorLabel->setEnabled(canFill);
    m_lineColorButton->showColor(m_configuration.lineColor());
    m_fillColorButton->showColor(m_configuration.fillColor());
    m_lineWidthBox->showValue(qRound(m_configuration.lineWidth().toDouble()));
    m_haloWidthBox->showValue(qRound(m_configuration.haloWidth().toDouble()));
    m_penStyleBox->showPenStyle(m_configuration.penStyle());
    m_smoothingBox->showValue(unsmoothed - m_configuration.smoothingStrength());
    m_fixPointsBox->setValue(m_configuration.smoothingSteps());
    m_fixPointsBox->setEnabled(m_configuration.smoothingStrength() != unsmoothed);
    showWarning();
}

void KRLookEditor::showWarning()
{
    const KRGPXTrackShape shape = effectiveShape();
    QString warning;
    if (m_chooser->wouldBeInvisible())
        warning = tr("Weder Linie noch Füllung wird gezeichnet: So ist nichts zu sehen.");
    else if (shape != AutoTrackShape && !m_configuration.hasDrawOption(shape.availableDisplayOptions()))
        warning = tr("Diese Form kann nicht gefüllt werden: Ohne Linie ist nichts zu sehen.");
    m_warningLabel->setText(warning.isEmpty() ? QString() : QStringLiteral("⚠ ") + warning);
    m_warningLabel->setVisible(!warning.isEmpty());
}
