#pragma once

#include <QMessageBox>

/**
 * A message box that shows names and reasons out of files as they are written, with no markup obeyed, and shortened.
 *
 * That holds for the text that is handed in here. The informative text is still to be one of our own.
 */
class KRPlainMessage : public QMessageBox
{
    Q_OBJECT

public:
    KRPlainMessage(Icon icon, const QString &title, const QString &text, StandardButtons buttons, QWidget *parent);

    static void information(QWidget *parent, const QString &title, const QString &text);
    static void warning(QWidget *parent, const QString &title, const QString &text);
    static void critical(QWidget *parent, const QString &title, const QString &text);
    /// Whether the user says yes.
    static bool isConfirmed(QWidget *parent, const QString &title, const QString &text);
};
