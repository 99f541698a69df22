#pragma once

#include <QProgressDialog>

/**
 * The progress of something that takes a while, and that also takes a while to end when the user cancels it.
 *
 * It shows after a moment, and from then on until it is destroyed: a window that still takes no input shall say why.
 */
class KRProgressDialog : public QProgressDialog
{
    Q_OBJECT

public:
    /// @param text what is being done; @p count the value at the end, 0 where there are no steps
    KRProgressDialog(const QString &text, int count, QWidget *window);

    /// Never hides it.
    void setVisible(bool visible) override;

public slots:
    /// Cancels, as the button does.
    void reject() override;

private:
    void showCancelling();
};
