#include "KRPatientEnd.h"

namespace {

volatile std::sig_atomic_t pendingSignal = 0;

extern "C" void remember(int signalNumber)
{
    pendingSignal = signalNumber;
}

} // namespace

KRPatientEnd::KRPatientEnd()
{
    pendingSignal = 0;
    struct sigaction patient = {};
    patient.sa_handler = remember;
    patient.sa_flags = SA_RESTART | int(SA_RESETHAND);
    for (std::size_t i = 0; i < signalNumbers.size(); ++i) {
        struct sigaction &former = m_formerActions[i];
        ::sigaction(signalNumbers[i], nullptr, &former);
        if (former.sa_handler == SIG_DFL)
            ::sigaction(signalNumbers[i], &patient, nullptr);
    }
}

KRPatientEnd::~KRPatientEnd()
{
    for (std::size_t i = 0; i < signalNumbers.size(); ++i)
        ::sigaction(signalNumbers[i], &m_formerActions[i], nullptr);
    if (pendingSignal != 0)
        std::raise(pendingSignal);
}
