#include "KRImportReportDialog.h"

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

QTreeWidgetItem *fileItem(QTreeWidget *tree, const QString &fileName, const QString &text)
{
    auto *const item = new QTreeWidgetItem(tree);
    item->setText(nameColumn, QStringLiteral("%1: %2").arg(QFileInfo(fileName).fileName(), text));
    item->setToolTip(nameColumn, QDir::toNativeSeparators(fileName));
    return item;
}

QString lineText(int line)
{
    return line > 0 ? QString::number(line) : QString();
}

QString textOf(const QTreeWidgetItem *item, const QString &indent)
{
    QString text = indent + item->text(nameColumn);
    if (!item->text(lineColumn).isEmpty())
        text += QStringLiteral(" (%1)").arg(item->text(lineColumn));
    text += QLatin1Char('\n');
    for (int i = 0; i < item->childCount(); ++i)
        text += textOf(item->child(i), indent + QStringLiteral("    "));
    return text;
}

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

QString KRImportReportDialog::text() const
{
    QString text;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        text += textOf(m_tree->topLevelItem(i), QString());
    return text;
}

void KRImportReportDialog::addProblems(const KRErrorHistory &problems)
{
    for (const KRErrorHistory::Entry &entry : problems.entries())
        fileItem(m_tree, entry.fileName, entry.reason)->setText(lineColumn, lineText(entry.line));
}

void KRImportReportDialog::addReport(const KRImportReport &report)
{
    QTreeWidgetItem *const item = fileItem(m_tree, report.fileName(), report.summary());
    for (const KRImportReport::Item &part : report.items()) {
        auto *const child = new QTreeWidgetItem(item);
        child->setText(nameColumn, KRImportReport::describe(part));
        child->setText(lineColumn, lineText(part.line));
    }
    constexpr int easyToSurvey = 20;
    item->setExpanded(report.items().size() <= easyToSurvey);
}

void KRImportReportDialog::copy() const
{
    QGuiApplication::clipboard()->setText(text());
}
