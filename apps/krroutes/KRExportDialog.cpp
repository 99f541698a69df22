#include "KRExportDialog.h"

#include "KRBackgroundTask.h"
#include "KRExportSettings.h"
#include "KRGapsWarning.h"
#include "KRPlainMessage.h"
#include "KRViewerSettings.h"

#include <KRExchangeFile.h>
#include <KRMapArea.h>
#include <KRMapComposition.h>
#include <KRPatientGround.h>
#include <KRPictureFile.h>
#include <KRPlainText.h>

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <atomic>

namespace {

constexpr int smallestSidePx = 16;
constexpr double largestFactor = 20.0;

QSpinBox *sideBox()
{
    auto *const box = new QSpinBox;
    box->setRange(smallestSidePx, KRPictureFile::largestSidePx);
    box->setSingleStep(100);
    return box;
}

QLabel *labelFor(QWidget *widget, const QString &text)
{
    auto *const label = new QLabel(text);
    label->setBuddy(widget);
    return label;
}

/// A name for a file, without what file systems do not take.
QString fileNameOf(const QString &title)
{
    QString name = title.simplified().left(100);
    for (int i = 0; i < name.size(); ++i) {
        const bool isLeadingDot = i == 0 && name.at(i) == QLatin1Char('.');
        if (isLeadingDot || QStringLiteral("/\\:*?\"<>|").contains(name.at(i)) || !name.at(i).isPrint())
            name[i] = QLatin1Char('_');
    }
    return name;
}

/// One that there is: the last one may be gone, and not everybody has a folder for documents.
QDir proposedFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString &folder : {KRViewerSettings().lastFolder(), documents}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return QDir(folder);
    }
    return QDir::home();
}

QByteArray formatOf(const QString &fileName)
{
    const QByteArray picture = KRPictureFile::formatOf(fileName);
    return picture.isEmpty() ? KRExchangeFile::formatOf(fileName) : picture;
}

} // namespace

KRExportDialog::KRExportDialog(const KRGPXTrackSelection &selection, const KRGeoPositionRect &shownArea,
                               KRMapGround *ground, QWidget *parent)
    : QDialog(parent), m_selection(selection), m_shownArea(shownArea), m_ground(ground), m_formatBox(new QComboBox),
      m_fileEdit(new QLineEdit), m_pictureBox(nullptr), m_areaBox(new QComboBox), m_widthBox(sideBox()),
      m_heightBox(sideBox()), m_factorBox(new QDoubleSpinBox), m_groundBox(new QCheckBox(tr("&Karte"))),
      m_legendBox(new QCheckBox(tr("&Legende"))), m_labelsBox(new QCheckBox(tr("&Namen der Routen")))
{
    setWindowTitle(tr("Exportieren"));
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    QPushButton *const exportButton = buttons->addButton(tr("&Exportieren"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &KRExportDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &KRExportDialog::reject);

    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(createFileBox());
    m_pictureBox = createPictureBox();
    layout->addWidget(m_pictureBox);
    layout->addStretch();
    layout->addWidget(buttons);
    exportButton->setDefault(true); // which only a button in a dialog can be
    readSettings();
    connect(m_formatBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &KRExportDialog::followFormat);
    followFormat();
}

QGroupBox *KRExportDialog::createFileBox()
{
    m_formatBox->setObjectName(QStringLiteral("format"));
    const auto addFormat = [this](const QString &text, const char *format) {
        m_formatBox->addItem(text, QByteArray(format));
    };
    addFormat(tr("PNG-Bild"), "png");
    addFormat(tr("JPEG-Bild"), "jpeg");
    addFormat(tr("WebP-Bild"), "webp");
    addFormat(tr("SVG-Zeichnung"), "svg");
    addFormat(tr("PDF-Dokument"), "pdf");
    addFormat(tr("GPX: Routen für andere Programme"), "gpx");
    addFormat(tr("KML: Routen mit Aussehen"), "kml");
    addFormat(tr("KMZ: dasselbe gepackt"), "kmz");

    m_fileEdit->setObjectName(QStringLiteral("file"));
    m_fileEdit->setMinimumWidth(m_fileEdit->fontMetrics().averageCharWidth() * 45);
    auto *const chooseButton = new QPushButton(tr("&Wählen …"));
    chooseButton->setAutoDefault(false);
    connect(chooseButton, &QPushButton::clicked, this, &KRExportDialog::chooseFile);
    auto *const fileRow = new QHBoxLayout;
    fileRow->addWidget(m_fileEdit);
    fileRow->addWidget(chooseButton);

    auto *const box = new QGroupBox(tr("Ziel"));
    auto *const form = new QFormLayout(box);
    form->addRow(tr("&Format:"), m_formatBox);
    form->addRow(labelFor(m_fileEdit, tr("&Datei:")), fileRow);
    return box;
}

QGroupBox *KRExportDialog::createPictureBox()
{
    m_areaBox->setObjectName(QStringLiteral("area"));
    m_areaBox->addItem(tr("wie auf der Karte"), false);
    m_areaBox->addItem(tr("alle Routen"), true);
    m_areaBox->setEnabled(m_shownArea.isValid());
    m_widthBox->setObjectName(QStringLiteral("width"));
    m_heightBox->setObjectName(QStringLiteral("height"));
    m_heightBox->setAccessibleName(tr("Höhe in Pixeln"));
    m_widthBox->setAccessibleName(tr("Breite in Pixeln"));
    auto *const sizeRow = new QHBoxLayout;
    sizeRow->addWidget(m_widthBox);
    sizeRow->addWidget(new QLabel(QStringLiteral("×")));
    sizeRow->addWidget(m_heightBox);
    sizeRow->addWidget(new QLabel(tr("Pixel")));
    sizeRow->addStretch();

    m_factorBox->setObjectName(QStringLiteral("factor"));
    m_factorBox->setRange(0.25, largestFactor);
    m_factorBox->setSingleStep(0.25);
    m_factorBox->setToolTip(tr("Vergrößert Linien und Schrift, zum Beispiel 2 für hohe Auflösung."));
    m_groundBox->setObjectName(QStringLiteral("ground"));
    m_legendBox->setObjectName(QStringLiteral("legend"));
    m_labelsBox->setObjectName(QStringLiteral("labels"));
    m_groundBox->setEnabled(m_ground != nullptr);

    auto *const box = new QGroupBox(tr("Bild"));
    auto *const form = new QFormLayout(box);
    form->addRow(tr("&Ausschnitt:"), m_areaBox);
    form->addRow(labelFor(m_widthBox, tr("&Größe:")), sizeRow);
    form->addRow(tr("&Vergrößerung:"), m_factorBox);
    form->addRow(tr("Es zeigt:"), m_groundBox);
    form->addRow(QString(), m_legendBox);
    form->addRow(QString(), m_labelsBox);
    return box;
}

void KRExportDialog::readSettings()
{
    const KRExportSettings settings;
    m_formatBox->setCurrentIndex(std::max(0, m_formatBox->findData(settings.format())));
    m_areaBox->setCurrentIndex(m_areaBox->findData(settings.showsAllTracks() || !m_shownArea.isValid()));
    m_widthBox->setValue(settings.size().width());
    m_heightBox->setValue(settings.size().height());
    m_factorBox->setValue(settings.factor());
    m_groundBox->setChecked(settings.hasGround() && m_ground);

    m_fileEdit->setText(QDir::toNativeSeparators(proposedFolder().filePath(tr("Karte"))));
}

void KRExportDialog::saveSettings() const
{
    KRExportSettings settings;
    settings.setFormat(format());
    settings.setSize(QSize(m_widthBox->value(), m_heightBox->value()));
    settings.setFactor(m_factorBox->value());
    if (m_shownArea.isValid())
        settings.setShowsAllTracks(m_areaBox->currentData().toBool());
    if (m_ground)
        settings.setGround(m_groundBox->isChecked());
    settings.save();
    KRViewerSettings().setLastFolder(QFileInfo(fileName()).absolutePath());
}

void KRExportDialog::setTitle(const QString &title)
{
    m_fileEdit->setText(QDir::toNativeSeparators(proposedFolder().filePath(fileNameOf(title))));
    followFormat();
}

void KRExportDialog::setLegend(bool isShown)
{
    m_legendBox->setChecked(isShown);
}

void KRExportDialog::setLabels(bool areShown)
{
    m_labelsBox->setChecked(areShown);
}

QString KRExportDialog::fileName() const
{
    const QString text = QDir::fromNativeSeparators(m_fileEdit->text().trimmed());
    if (text.isEmpty() || formatOf(text) == format())
        return text;
    return text + QLatin1Char('.') + QString::fromLatin1(format() == "jpeg" ? QByteArrayLiteral("jpg") : format());
}

QByteArray KRExportDialog::format() const
{
    return m_formatBox->currentData().toByteArray();
}

bool KRExportDialog::isPicture() const
{
    return KRPictureFile::formats().contains(format());
}

void KRExportDialog::chooseFile()
{
    const QString suffix = QString::fromLatin1(format());
    const QString chosen = QFileDialog::getSaveFileName(
        this, windowTitle(), fileName(), QStringLiteral("%1 (*.%2)").arg(m_formatBox->currentText(), suffix), nullptr,
        QFileDialog::DontConfirmOverwrite);
    if (!chosen.isEmpty())
        m_fileEdit->setText(QDir::toNativeSeparators(chosen));
}

void KRExportDialog::followFormat()
{
    m_pictureBox->setEnabled(isPicture());
    for (QSpinBox *const side : {m_widthBox, m_heightBox})
        side->setMaximum(KRPictureFile::largestSideOf(format()));
    // A suffix that the dialog knows follows the format; any other is part of the name.
    QString text = m_fileEdit->text().trimmed();
    if (!formatOf(text).isEmpty())
        text.truncate(text.lastIndexOf(QLatin1Char('.')));
    m_fileEdit->setText(text);
    m_fileEdit->setText(QDir::toNativeSeparators(fileName()));
}

KRGeoPositionRect KRExportDialog::area() const
{
    if (!m_areaBox->currentData().toBool())
        return m_shownArea;
    const KRGeoPositionRect padded = KRMapArea::paddedAreaOf(m_selection);
    return padded.isValid() ? padded : m_shownArea;
}

void KRExportDialog::accept()
{
    const QString target = fileName();
    if (target.isEmpty()) {
        complain(tr("Es fehlt der Name der Datei."));
        m_fileEdit->setFocus();
        return;
    }
    if (!mayReplace(target))
        return;
    QByteArray bytes;
    KRErrorHistory losses;
    if (!createBytes(&bytes, &losses))
        return;
    KRErrorHistory history;
    if (KRFileHandler::writeAll(QFileInfo(target), bytes, &history)) {
        saveSettings();
        if (!losses.isEmpty())
            warn(losses);
        QDialog::accept();
        return;
    }
    complain(history.isEmpty() ? QString() : history.entries().first().reason);
}

void KRExportDialog::reject()
{
    // Window managers close what takes no input, too.
    if (isEnabled())
        QDialog::reject();
}

bool KRExportDialog::mayReplace(const QString &fileName)
{
    const QFileInfo file(fileName);
    KRErrorHistory history;
    if (!KRFileHandler::isReplaceable(file, &history)) {
        complain(history.entries().first().reason);
        return false;
    }
    if (!file.exists())
        return true;
    return KRPlainMessage::isConfirmed(this, windowTitle(),
                                       tr("„%1“ gibt es schon. Ersetzen?").arg(KRPlainText::fileName(file.filePath())));
}

bool KRExportDialog::createBytes(QByteArray *bytes, KRErrorHistory *history)
{
    bool isComplete = true;
    std::atomic<bool> isStopped{false};
    if (isPicture())
        isComplete = createPicture(bytes);
    else
        isComplete = KRBackgroundTask::run(
            this, tr("Die Routen werden geschrieben …"),
            [&, tracks = m_selection.tracks(), format = format(), title = QFileInfo(fileName()).completeBaseName()] {
                *bytes = KRExchangeFile::encode(tracks, format, title, history, [&isStopped] { return !isStopped; });
            },
            [&isStopped] { isStopped = true; });
    if (isComplete && bytes->isNull())
        complain(history->isEmpty() ? tr("Das Ergebnis ist zu groß für diesen Rechner oder dieses Format.")
                                    : history->entries().first().reason);
    return isComplete && !bytes->isNull();
}

bool KRExportDialog::createPicture(QByteArray *bytes)
{
    const KRGeoPositionRect shown = area();
    if (!shown.isValid()) {
        complain(tr("Es gibt nichts zu zeichnen."));
        return false;
    }
    KRMapComposition map(m_selection, shown, QSize(m_widthBox->value(), m_heightBox->value()), m_factorBox->value());
    KRPatientGround ground(m_ground);
    if (m_ground && m_groundBox->isChecked())
        map.setGround(&ground);
    map.setLegend(m_legendBox->isChecked());
    map.setLabels(m_labelsBox->isChecked());
    const QString title = QFileInfo(fileName()).completeBaseName();
    const bool isDone = KRBackgroundTask::run(
        this, tr("Die Karte wird gezeichnet …"),
        [&, format = format()] { *bytes = KRPictureFile::encode(map, format, title); }, [&] { ground.stop(); });
    if (isDone)
        KRGapsWarning::show(this, windowTitle(), ground.gaps());
    if (isDone && KRPictureFile::isVector(format()) && map.isGroundReduced())
        KRPlainMessage::warning(this, windowTitle(),
                                tr("Das Bild der Karte unter den Routen wäre zu groß; es ist gröber als verlangt."));
    return isDone;
}

void KRExportDialog::warn(const KRErrorHistory &losses)
{
    QStringList reasons;
    for (const KRErrorHistory::Entry &loss : losses.entries())
        reasons.append(QStringLiteral("• ") + loss.reason);
    KRPlainMessage::warning(this, windowTitle(),
                            tr("„%1“ wurde geschrieben. Darin fehlt, was dieses Format nicht aufnimmt:\n\n%2")
                                .arg(KRPlainText::fileName(fileName()), reasons.join(QLatin1Char('\n'))));
}

void KRExportDialog::complain(const QString &reason)
{
    KRPlainMessage::critical(this, windowTitle(),
                             tr("„%1“ kann nicht geschrieben werden.\n\n%2")
                                 .arg(KRPlainText::oneLine(QDir::toNativeSeparators(fileName())), reason));
}
