#include "KRFlightLineDialog.h"

#include "KRFigureTexts.h"
#include "KRPlaceEdit.h"

#include <KRGeoLocation/KRGPXBeelineCreator.h>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

KRFlightLineDialog::KRFlightLineDialog(QWidget *parent)
    : QDialog(parent), m_from(new KRPlaceEdit(tr("Von"))), m_to(new KRPlaceEdit(tr("Nach"))), m_name(new QLineEdit),
      m_state(new QLabel)
{
    setWindowTitle(tr("Fluglinie"));
    m_from->showPlace(QStringLiteral("Bremen"));
    m_to->showPlace(QStringLiteral("New York"));
    m_state->setWordWrap(true);

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_okButton = buttons->button(QDialogButtonBox::Ok);
    m_okButton->setText(tr("Ein&fügen"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_from, &KRPlaceEdit::changed, this, &KRFlightLineDialog::showState);
    connect(m_to, &KRPlaceEdit::changed, this, &KRFlightLineDialog::showState);

    auto *const nameRow = new QFormLayout;
    nameRow->addRow(tr("&Name:"), m_name);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_from);
    layout->addWidget(m_to);
    layout->addLayout(nameRow);
    layout->addWidget(m_state);
    layout->addStretch();
    layout->addWidget(buttons);
    showState();
}

void KRFlightLineDialog::setStart(const KRGeoPosition &position)
{
    m_from->showPosition(position);
    showState();
}

KRGPXTrack KRFlightLineDialog::track() const
{
    if (!m_okButton->isEnabled())
        return KRGPXTrack();
    const QString name = m_name->text().trimmed();
    return KRGPXBeelineCreator(m_from->position(), m_to->position())
        .createBeeline(name.isEmpty() ? suggestedName() : name);
}

void KRFlightLineDialog::showState()
{
    const KRGeoPosition from = m_from->position();
    const KRGeoPosition to = m_to->position();
    const bool areValid = from.isValid() && to.isValid();
    if (!areValid)
        m_state->setText(tr("Breiten reichen bis 90°, Längen bis 180°. 0° und 0° gilt nicht als Ort."));
    else if (from == to)
        m_state->setText(tr("Beide Orte sind derselbe."));
    else
        m_state->setText(tr("Entfernung: %1").arg(KRFigureTexts::way(from.distance(to))));
    m_okButton->setEnabled(areValid && from != to);
    m_name->setPlaceholderText(suggestedName());
}

QString KRFlightLineDialog::suggestedName() const
{
    if (m_from->name().isEmpty() || m_to->name().isEmpty())
        return tr("Fluglinie");
    return QStringLiteral("%1 – %2").arg(m_from->name(), m_to->name());
}
