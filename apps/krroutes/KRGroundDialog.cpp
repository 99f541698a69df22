#include "KRGroundDialog.h"

#include "KRGroundSettings.h"
#include "KRViewerSettings.h"

#include <KRCore/KRErrorHistory.h>
#include <KRPlainText.h>
#include <KRTileSource.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int checkDelayMs = 250;
constexpr int usualWidthPx = 560;
constexpr int longestReason = 600; // characters

} // namespace

KRGroundDialog::KRGroundDialog(QWidget *parent)
    : QDialog(parent), m_source(new QComboBox), m_credit(new QLineEdit), m_state(new QLabel)
{
    setWindowTitle(tr("Karte aus Kacheln"));
    m_source->setEditable(true);
    m_source->setInsertPolicy(QComboBox::NoInsert);
    m_source->setMinimumContentsLength(30);
    m_source->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_source->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_source->lineEdit()->setPlaceholderText(QStringLiteral("https://…/{z}/{x}/{y}.png"));
    const QVector<KRGroundChoice> recent = KRGroundSettings().recentTiles();
    for (const KRGroundChoice &choice : recent)
        m_source->addItem(choice.source(), choice.credit());
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setMinimumHeight(3 * fontMetrics().lineSpacing());
    m_state->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto *const explanation = new QLabel(tr("Eine MBTiles-Datei, ein Ordner mit Stufe/Spalte/Zeile oder eine Adresse "
                                            "mit {z}, {x} und {y}; {-y} zählt die Zeilen von Süden."));
    explanation->setWordWrap(true);
    auto *const fileButton = new QPushButton(tr("&Datei …"));
    auto *const folderButton = new QPushButton(tr("&Ordner …"));
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_okButton = buttons->button(QDialogButtonBox::Ok);

    auto *const sourceRow = new QHBoxLayout;
    sourceRow->addWidget(m_source);
    sourceRow->addWidget(fileButton);
    sourceRow->addWidget(folderButton);
    auto *const form = new QFormLayout;
    form->addRow(tr("&Quelle:"), sourceRow);
    qobject_cast<QLabel *>(form->labelForField(sourceRow))->setBuddy(m_source);
    form->addRow(tr("Quellen&angabe:"), m_credit);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addLayout(form);
    layout->addWidget(m_state);
    layout->addStretch();
    layout->addWidget(buttons);
    resize(usualWidthPx, sizeHint().height());

    m_check.setSingleShot(true);
    m_check.setInterval(checkDelayMs);
    connect(&m_check, &QTimer::timeout, this, &KRGroundDialog::checkSource);
    connect(m_source, &QComboBox::editTextChanged, this, [this](const QString &source) {
        m_okButton->setEnabled(false);
        m_check.start();
        // What the user has typed himself may be meant for this source.
        if (!m_credit->isModified())
            showCreditOfRecent(m_source->findText(source, Qt::MatchFixedString | Qt::MatchCaseSensitive));
    });
    connect(m_source, QOverload<int>::of(&QComboBox::activated), this, &KRGroundDialog::showCreditOfRecent);
    connect(fileButton, &QPushButton::clicked, this, &KRGroundDialog::chooseFile);
    connect(folderButton, &QPushButton::clicked, this, &KRGroundDialog::chooseFolder);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showCreditOfRecent(m_source->currentIndex());
    checkSource();
}

KRGroundChoice KRGroundDialog::choice() const
{
    return KRGroundChoice::tiles(m_source->currentText(), m_credit->text());
}

void KRGroundDialog::chooseFile()
{
    const QString filter = tr("MBTiles-Dateien (*.mbtiles);;Alle Dateien (*)");
    useSource(QFileDialog::getOpenFileName(this, tr("Datei mit Kacheln"), KRViewerSettings().lastFolder(), filter));
}

void KRGroundDialog::chooseFolder()
{
    useSource(QFileDialog::getExistingDirectory(this, tr("Ordner mit Kacheln"), KRViewerSettings().lastFolder()));
}

void KRGroundDialog::useSource(const QString &source)
{
    if (source.isEmpty())
        return;
    m_credit->setText(QString());
    m_source->setEditText(QDir::toNativeSeparators(source));
    checkSource();
}

void KRGroundDialog::showCreditOfRecent(int index)
{
    m_credit->setText(m_source->itemData(index).toString());
}

void KRGroundDialog::checkSource()
{
    m_check.stop();
    const QString text = m_source->currentText();
    KRErrorHistory history;
    const std::unique_ptr<KRTileSource> source =
        text.trimmed().isEmpty() ? nullptr : KRTileSource::open(text, &history);
    m_okButton->setEnabled(source != nullptr);
    m_credit->setPlaceholderText(source == nullptr ? QString() : source->credit());
    if (source != nullptr)
        m_state->setText(noteOnSource());
    else
        m_state->setText(history.isEmpty() ? QString()
                                           : KRPlainText::shortened(history.entries().first().reason, longestReason));
}

QString KRGroundDialog::noteOnSource() const
{
    const QString host = KRPlainText::oneLine(QUrl(m_source->currentText().trimmed()).host());
    if (host.isEmpty())
        return tr("Die Kacheln liegen auf diesem Rechner; es wird nichts aus dem Netz geladen.");
    return tr("Was die Karte zeigt, wird von %1 geladen und auf diesem Rechner aufbewahrt. Wer dort Karten anbietet, "
              "erfährt dadurch, welche Gegend Sie betrachten, und verlangt meist eine Quellenangabe.")
        .arg(host);
}
