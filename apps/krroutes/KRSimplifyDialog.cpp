#include "KRSimplifyDialog.h"

#include <KRTrackSimplifier.h>

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>
#include <QtConcurrent>

#include <cmath>

namespace {

constexpr double defaultTolerance = 10.0; // metres
constexpr double largestTolerance = 100000.0;
// The slider goes from 0.1 metres to 10 kilometres, by equal ratios.
constexpr int stepsPerDecade = 20;
constexpr int lowestStep = -1 * stepsPerDecade;
constexpr int highestStep = 4 * stepsPerDecade;

int stepOf(double tolerance)
{
    return tolerance > 0.0 ? qRound(std::log10(tolerance) * stepsPerDecade) : lowestStep;
}

} // namespace

KRSimplifyDialog::KRSimplifyDialog(const KRGPXConfiguredTrack &track, QWidget *parent)
    : QDialog(parent), m_track(track), m_slider(new QSlider(Qt::Horizontal)), m_tolerance(new QDoubleSpinBox),
      m_state(new QLabel)
{
    setWindowTitle(tr("Route vereinfachen"));
    auto *const explanation =
        new QLabel(tr("Lässt Punkte weg, ohne die die Linie nirgends weiter als diesen Abstand von ihrem Ort rückt."));
    explanation->setWordWrap(true);
    explanation->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    m_tolerance->setRange(0.0, largestTolerance);
    m_tolerance->setDecimals(1);
    m_tolerance->setSuffix(tr(" m"));
    m_tolerance->setValue(defaultTolerance);
    m_slider->setRange(lowestStep, highestStep);
    m_slider->setValue(stepOf(defaultTolerance));
    m_slider->setAccessibleName(tr("Abstand"));
    m_state->setWordWrap(true);

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_okButton = buttons->button(QDialogButtonBox::Ok);
    m_okButton->setText(tr("&Vereinfachen"));
    auto *const form = new QFormLayout;
    form->addRow(tr("&Abstand:"), m_tolerance);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addLayout(form);
    layout->addWidget(m_slider);
    layout->addWidget(m_state);
    layout->addStretch();
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_slider, &QSlider::valueChanged, this, &KRSimplifyDialog::takeSlider);
    connect(m_tolerance, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &KRSimplifyDialog::showState);
    connect(&m_measuring, &QFutureWatcherBase::finished, this, [this] {
        // Too little memory ends the measuring without a result.
        if (m_measuring.isCanceled()) {
            reject();
            return;
        }
        m_simplifier = m_measuring.result();
        showState();
    });
    m_measuring.setFuture(QtConcurrent::run([track] { return SharedSimplifier(new KRTrackSimplifier(track)); }));
    showState();
}

KRGPXConfiguredTrack KRSimplifyDialog::simplified() const
{
    return m_simplifier ? m_simplifier->simplified(m_tolerance->value()) : m_track;
}

void KRSimplifyDialog::takeSlider(int position)
{
    m_tolerance->setValue(std::pow(10.0, double(position) / stepsPerDecade));
}

void KRSimplifyDialog::showState()
{
    const QSignalBlocker blocker(m_slider);
    m_slider->setValue(stepOf(m_tolerance->value()));
    m_okButton->setEnabled(false);
    if (!m_simplifier) {
        m_state->setText(tr("Die Route wird gemessen …"));
        return;
    }
    const int left = m_simplifier->countPoints(m_tolerance->value());
    const int all = m_simplifier->countAllPoints();
    m_okButton->setEnabled(left < all);
    m_state->setText(left < all
                         ? tr("Von %1 Punkten bleiben %2.").arg(QLocale().toString(all), QLocale().toString(left))
                         : tr("Alle %1 Punkte bleiben.").arg(QLocale().toString(all)));
}
