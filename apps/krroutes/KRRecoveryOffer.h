#pragma once

#include "KRRecoveryFolder.h"

#include <QCoreApplication>

#include <memory>

class QWidget;

/**
 * Offers the user what viewers have left behind that ended without asking, for example when the power failed.
 */
class KRRecoveryOffer
{
    Q_DECLARE_TR_FUNCTIONS(KRRecoveryOffer)

public:
    /// Asks for each folder until the user wants one; that is returned, locked, else null. What the user neither wants
    /// nor gives up is offered again at the next start.
    static std::unique_ptr<KRRecoveryFolder> ask(const QDir &place, QWidget *parent);

private:
    enum Answer : int {
        Recover = 0,
        Discard = 1,
        Later = 2,
    };

    static Answer ask(const KRRecoveryFolder &folder, QWidget *parent);
};
