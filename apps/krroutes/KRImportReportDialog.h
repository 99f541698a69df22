#pragma once

#include <KRImportReport.h>

#include <KRCore/KRErrorHistory.h>

#include <QDialog>

class QTreeWidget;
class QTreeWidgetItem;

/**
 * Names what of the files just read is not drawn, and why: files that gave nothing or less than they should, and
 * what stands in the reports of the others.
 */
class KRImportReportDialog : public QDialog
{
    Q_OBJECT

public:
    KRImportReportDialog(const KRErrorHistory &problems, const QList<KRImportReport> &reports,
                         QWidget *parent = nullptr);

    /// One line for each thing, in full: the dialog shortens long ones and leaves out what is more than thousands.
    QString text() const { return m_text; }

private:
    void addProblems(const KRErrorHistory &problems);
    void addReport(const KRImportReport &report);
    /// Null where there are too many rows already; so for addRow().
    QTreeWidgetItem *addFile(const QString &fileName, const QString &text, int line);
    QTreeWidgetItem *addRow(QTreeWidgetItem *parent, const QString &indent, const QString &text, int line);
    void copy() const;

    QTreeWidget *m_tree;
    QString m_text;
    int m_rowCount = 0;
};
