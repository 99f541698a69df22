#include "KRProgressDialog.h"

#include <QLabel>
#include <QPushButton>

KRProgressDialog::KRProgressDialog(const QString &text, int count, QWidget *window)
    : QProgressDialog(QString(), tr("Abbrechen"), 0, count, window)
{
    constexpr int patienceMs = 400;
    // Before there is a text to guess about.
    findChild<QLabel *>()->setTextFormat(Qt::PlainText);
    setLabelText(text);
    setWindowTitle(window->windowTitle());
    setWindowModality(Qt::WindowModal);
    setMinimumDuration(patienceMs);
    setAutoReset(false);
    connect(this, &QProgressDialog::canceled, this, &KRProgressDialog::showCancelling);
    setValue(0); // from now on it waits to be shown
}

void KRProgressDialog::setVisible(bool visible)
{
    if (visible)
        QProgressDialog::setVisible(true);
}

void KRProgressDialog::reject()
{
    emit canceled();
}

void KRProgressDialog::showCancelling()
{
    setLabelText(tr("Wird abgebrochen …"));
    findChild<QPushButton *>()->setEnabled(false);
}
