#pragma once

#include "KRGroundChoice.h"

#include <QDialog>
#include <QTimer>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/**
 * Asks for a source of map tiles and whom they are owed to. Only what can be opened can be accepted.
 */
class KRGroundDialog : public QDialog
{
    Q_OBJECT

public:
    explicit KRGroundDialog(QWidget *parent = nullptr);

    /// Always tiles.
    KRGroundChoice choice() const;

private:
    void chooseFile();
    void chooseFolder();
    void useSource(const QString &source);
    void showCreditOfRecent(int index);
    void checkSource();
    QString noteOnSource() const;

    QComboBox *const m_source;
    QLineEdit *const m_credit;
    QLabel *const m_state;
    QPushButton *m_okButton = nullptr;
    QTimer m_check; ///< of the source, when nobody has typed for a moment
};
