#pragma once

#include <KRGeoLocation/KRGPXTrack.h>

#include <QDialog>

class KRPlaceEdit;
class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for two places, between which a flight line is to be drawn.
class KRFlightLineDialog : public QDialog
{
    Q_OBJECT

public:
    explicit KRFlightLineDialog(QWidget *parent = nullptr);

    /// Where the line is to begin, for example where the map was clicked.
    void setStart(const KRGeoPosition &position);

    /// The shortest way over the globe between both places, made of many points. Not valid while these do not do.
    KRGPXTrack track() const;

private:
    void showState();
    QString suggestedName() const;

    KRPlaceEdit *const m_from;
    KRPlaceEdit *const m_to;
    QLineEdit *const m_name;
    QLabel *const m_state;
    QPushButton *m_okButton = nullptr;
};
