#pragma once

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QElapsedTimer>
#include <QUndoCommand>

#include <functional>

/**
 * One change of the tracks, their looks or the cropping: the selection before and after it.
 *
 * Selections share their points, so both cost little. Changes of one kind to the same track that follow each other
 * within a second become one step, as when the user turns a wheel.
 */
class KRSelectionChange : public QUndoCommand
{
public:
    enum Kind : int {
        UniqueChange = -1, ///< never merged
        ConfigurationChange = 1,
        AllConfigurationsChange = 2,
        CroppingChange = 3,
    };

    /// @p apply is called with the selection to show, once when the change is pushed and at each undo and redo.
    using ApplyFunction = std::function<void(const KRGPXTrackSelection &selection)>;

    KRSelectionChange(const KRGPXTrackSelection &before, const KRGPXTrackSelection &after, const QString &text,
                      const ApplyFunction &apply, Kind kind = UniqueChange, int row = -1);

    int id() const override { return m_kind; }
    bool mergeWith(const QUndoCommand *other) override;
    void undo() override { m_apply(m_before); }
    void redo() override { m_apply(m_after); }

private:
    KRGPXTrackSelection m_before;
    KRGPXTrackSelection m_after;
    ApplyFunction m_apply;
    Kind m_kind;
    int m_row;
    QElapsedTimer m_age;
};
