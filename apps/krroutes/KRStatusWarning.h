#pragma once

#include <KRGUIWidgets/KRElidedLabel.h>

/**
 * A warning in the status bar, for as long as there is a reason: messages there give way to the next tip.
 *
 * Where the window is too narrow it is shortened; the tool tip has all of it, of very long ones beginning and end.
 */
class KRStatusWarning : public KRElidedLabel
{
    Q_OBJECT

public:
    explicit KRStatusWarning(QWidget *parent = nullptr);

    /// An empty text hides it.
    void setWarning(const QString &text);

    QSize sizeHint() const override;
};
