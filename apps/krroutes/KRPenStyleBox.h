#pragma once

#include <KRCore/KRPenStyle.h>

#include <QComboBox>

/// Offers the ways in which a line may be dashed, each with a picture of it. A line that is none is not offered.
class KRPenStyleBox : public QComboBox
{
    Q_OBJECT

public:
    explicit KRPenStyleBox(QWidget *parent = nullptr);

    KRPenStyle penStyle() const;
    /// Announces nothing. Nothing is chosen for a style that is not offered.
    void showPenStyle(const KRPenStyle &style);

signals:
    /// By the user.
    void penStyleChanged(const KRPenStyle &style);

protected:
    /// Draws the pictures anew where the colours of the texts have changed.
    void changeEvent(QEvent *event) override;

private:
    void updateIcons();
};
