#include "KRImportReportDialog.h"

#include <KRPlainText.h>

#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int nameColumn = 0;
constexpr int lineColumn = 1;

constexpr int longestRow = 300; // characters
constexpr int mostRows = 2000; // nobody reads more

} // namespace

KRImportReportDialog::KRImportReportDialog(const KRErrorHistory &problems, const QList<KRImportReport> &reports,
                                           QWidget *parent)
    : QDialog(parent), m_tree(new QTreeWidget(this))
{
    setWindowTitle(tr("Nicht alles wird gezeichnet"));
    auto *const explanation = new QLabel(tr("Das Folgende fehlt auf der Karte; die Dateien bleiben, wie sie sind."));
    explanation->setWordWrap(true);

    m_tree->setColumnCount(2);
    m_tree->setHeaderLabels({tr("Datei und Grund"), tr("Zeile")});
    m_tree->header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(lineColumn, QHeaderView::ResizeToContents);
    m_tree->header()->setStretchLastSection(false);
    m_tree->setWordWrap(true);
    addProblems(problems);
    for (const KRImportReport &report : reports)
        addReport(report);
    if (m_rowCount > mostRows) {
        auto *const rest = new QTreeWidgetItem(m_tree);
        rest->setText(nameColumn, tr("… und %n weitere im kopierten Text", nullptr, m_rowCount - mostRows));
    }

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *const copyButton = buttons->addButton(tr("Text &kopieren"), QDialogButtonBox::ActionRole);
    copyButton->setAutoDefault(false);
    connect(copyButton, &QPushButton::clicked, this, &KRImportReportDialog::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);

    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(m_tree);
    layout->addWidget(buttons);
    resize(640, 360);
}

void KRImportReportDialog::addProblems(const KRErrorHistory &problems)
{
    for (const KRErrorHistory::Entry &entry : problems.entries())
        addFile(entry.fileName, entry.reason, entry.line);
}

void KRImportReportDialog::addReport(const KRImportReport &report)
{
    QTreeWidgetItem *const file = addFile(report.fileName(), report.summary(), 0);
    for (const KRImportReport::Item &part : report.items())
        addRow(file, QStringLiteral("    "), KRImportReport::describe(part), part.line);
    constexpr int easyToSurvey = 20;
    if (file != nullptr)
        file->setExpanded(report.items().size() <= easyToSurvey);
}

QTreeWidgetItem *KRImportReportDialog::addFile(const QString &fileName, const QString &text, int line)
{
    const QString row = QStringLiteral("%1: %2").arg(QFileInfo(fileName).fileName(), text);
    QTreeWidgetItem *const item = addRow(m_tree->invisibleRootItem(), QString(), row, line);
    if (item != nullptr)
        item->setToolTip(nameColumn, KRPlainText::toolTip(QDir::toNativeSeparators(fileName)));
    return item;
}

QTreeWidgetItem *KRImportReportDialog::addRow(QTreeWidgetItem *parent, const QString &indent, const QString &text,
                                              int line)
{
    const QString lineText = line > 0 ? QString::number(line) : QString();
    m_text += indent + text + (line > 0 ? QStringLiteral(" (%1)").arg(lineText) : QString()) + QLatin1Char('\n');
    if (++m_rowCount > mostRows)
        return nullptr;
    auto *const item = new QTreeWidgetItem(parent);
    item->setText(nameColumn, KRPlainText::oneLine(text, longestRow));
    item->setText(lineColumn, lineText);
    return item;
}

void KRImportReportDialog::copy() const
{
    QGuiApplication::clipboard()->setText(m_text);
}
