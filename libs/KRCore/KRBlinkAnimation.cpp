#include "KRBlinkAnimation.h"

#include <array>

namespace {

constexpr int stepMs = 110;
constexpr std::array<int, 9> states{2, 1, 0, 2, 1, 0, 2, 1, 0};

} // namespace

KRBlinkAnimation::KRBlinkAnimation(QObject *parent) : QObject(parent)
{
    m_timer.setInterval(stepMs);
    connect(&m_timer, &QTimer::timeout, this, &KRBlinkAnimation::showNextState);
}

KRBlinkAnimation::~KRBlinkAnimation() = default;

void KRBlinkAnimation::start()
{
    m_step = 0;
    m_timer.start();
    showNextState();
}

void KRBlinkAnimation::stop()
{
    m_timer.stop();
    if (m_state != normalState)
        show(normalState);
}

void KRBlinkAnimation::showNextState()
{
    const int state = states.at(static_cast<std::size_t>(m_step));
    ++m_step;
    // Before the signal, whose receiver may start the animation again or delete it.
    if (m_step == static_cast<int>(states.size()))
        m_timer.stop();
    show(state);
}

void KRBlinkAnimation::show(int state)
{
    m_state = state;
    emit blink(state);
}
