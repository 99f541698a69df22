#pragma once

#include <QtGlobal>

#include <array>
#include <csignal>

/**
 * Has the program finish what it writes before it ends, when it is asked to end while this lives (SIGINT, SIGTERM,
 * SIGHUP, SIGQUIT). Asked twice with the same signal it ends at once. What the program ignores it goes on ignoring. One
 * at a time, main thread only.
 */
class KRPatientEnd
{
public:
    KRPatientEnd();
    /// Ends the program if it has been asked to meanwhile.
    ~KRPatientEnd();

private:
    Q_DISABLE_COPY(KRPatientEnd)

    static constexpr std::array<int, 4> signalNumbers = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

    std::array<struct sigaction, signalNumbers.size()> m_formerActions;
};
