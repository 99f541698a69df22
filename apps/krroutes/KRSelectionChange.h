#pragma once

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QElapsedTimer>
#include <QUndoCommand>

#include <functional>

/**
 * One change of the tracks, their looks or the cropping: the rows that differ, before and after it, and the cropping.
 *
 * Tracks share their points, so only what an edit makes anew takes much room. Changes of one kind to the same rows
 * that follow each other within a second become one step, as when the user turns a wheel.
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

    /// @p apply is called with the tracks that shall stand where @p count tracks from @p row on are, and with the
    /// cropping: once when the change is pushed and at each undo and redo.
    using ApplyFunction = std::function<void(int row, int count, const KRGPXTrackSelection &part)>;

    KRSelectionChange(const KRGPXTrackSelection &before, const KRGPXTrackSelection &after, const QString &text,
                      const ApplyFunction &apply, Kind kind = UniqueChange);

    /// What it takes of the memory, roughly.
    qint64 bytes() const { return m_bytes; }
    /// Gives that back. Undoing the change does nothing from now on but take it from the stack.
    void forget();

    int id() const override { return m_kind; }
    bool mergeWith(const QUndoCommand *other) override;
    void undo() override;
    void redo() override;

private:
    ApplyFunction m_apply;
    Kind m_kind;
    int m_row; // the first that differs
    KRGPXTrackSelection m_before;
    KRGPXTrackSelection m_after;
    qint64 m_bytes;
    QElapsedTimer m_age;
};
