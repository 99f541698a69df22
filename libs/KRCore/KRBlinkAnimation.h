#pragma once

#include "KRCoreExport.h"

#include <QObject>
#include <QTimer>

/**
 * Lets something blink three times within a second: tells which look is due, and ends with the normal one.
 *
 * The states are 0 (the normal look), 1 and 2 (the strongest look). Needs an event loop.
 */
class KRCORE_EXPORT KRBlinkAnimation : public QObject
{
    Q_OBJECT

public:
    static constexpr int normalState = 0;
    static constexpr int strongestState = 2;

    explicit KRBlinkAnimation(QObject *parent = nullptr);
    ~KRBlinkAnimation() override;

    bool isRunning() const { return m_timer.isActive(); }

public slots:
    /// From the beginning, also while it runs. The first state comes at once.
    void start();
    /// Ends early, with state 0 when that is not the present one.
    void stop();

signals:
    /// The look that is due from now on: 0, 1 or 2.
    void blink(int state);

private:
    void showNextState();
    void show(int state);

    QTimer m_timer;
    int m_step = 0;
    int m_state = normalState;
};
