#pragma once

#include <QColor>
#include <QPushButton>

/**
 * Shows a colour on a checkerboard, so that its transparency can be seen, and opens a dialog to change it.
 *
 * While the dialog is open every colour tried is announced; leaving it with Cancel announces the first one again.
 */
class KRColorButton : public QPushButton
{
    Q_OBJECT

public:
    /// @p title says whose colour it is, for the dialog and the tool tip.
    explicit KRColorButton(const QString &title, QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    /// Announces nothing.
    void showColor(const QColor &color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// By the user.
    void colorChanged(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void openDialog();
    void takeColor(const QColor &color);

    QString m_title;
    QColor m_color = Qt::black;
};
