#pragma once

#include <KRImportReport.h>

#include <KRCore/KRErrorHistory.h>

#include <QDialog>

class QTreeWidget;

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

    /// Everything that the dialog shows, one line for each thing.
    QString text() const;

private:
    void addProblems(const KRErrorHistory &problems);
    void addReport(const KRImportReport &report);
    void copy() const;

    QTreeWidget *m_tree;
};
