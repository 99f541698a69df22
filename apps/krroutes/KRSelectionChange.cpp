#include "KRSelectionChange.h"

KRSelectionChange::KRSelectionChange(const KRGPXTrackSelection &before, const KRGPXTrackSelection &after,
                                     const QString &text, const ApplyFunction &apply, Kind kind, int row)
    : QUndoCommand(text), m_before(before), m_after(after), m_apply(apply), m_kind(kind), m_row(row)
{
    m_age.start();
}

bool KRSelectionChange::mergeWith(const QUndoCommand *other)
{
    constexpr qint64 longestPauseMs = 1000;
    const auto *const next = static_cast<const KRSelectionChange *>(other); // the stack compares id() first
    if (next->m_row != m_row || m_age.elapsed() > longestPauseMs)
        return false;
    m_after = next->m_after;
    m_age.restart();
    setObsolete(m_after == m_before);
    return true;
}
