#pragma once

#include "KRGPXConfiguredTrackList.h"

#include <QAbstractTableModel>

class KRGPXTrackSelection;

/**
 * The configured tracks of one selection for an item view, one row per track in the order in which they are drawn.
 *
 * The first of the two columns shows the name; the second shows nothing, hosts put buttons there. Rows are reordered
 * by drag and drop within the view. Configurations are applied to single rows or to all; names are edited elsewhere.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;
    ~KRGPXTrackListModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    using QObject::parent;
    /// Tracks have neither parents nor children.
    QModelIndex parent(const QModelIndex &child) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;

    /// The name for display (first column) and for editing, the description as tool tip.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Accepts nothing.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /// A QDataStream with one QString per valid index, its row in decimal digits.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    /**
     * Moves the dragged rows to @p row and the places after it, one by one; below the last row and beside the rows
     * that means the last place. Emits pleaseSelectTrack() with the first place. False for data of another type.
     */
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

    KRGPXConfiguredTrackList tracks() const { return m_tracks; }
    /// A default track where there is no such row.
    KRGPXConfiguredTrack trackAt(const QModelIndex &index) const;
    KRGPXConfiguredTrack trackAt(int row) const;
    bool isValidRow(int row) const { return m_tracks.checkRange(row); }

    /// Resets the model, unless it shows just these tracks already.
    void setSelection(const KRGPXTrackSelection &selection);
    /// Appends and resets.
    void addTracks(const KRGPXConfiguredTrackList &tracks);
    /// Removes the row and resets; an invalid index is ignored.
    void remove(const QModelIndex &index);
    /// Ignored when there is no track @p from; beyond the ends @p to means the first or the last row.
    void moveTrack(int from, int to);
    /// See KRGPXConfiguredTrackList; a row that there is not is ignored.
    void setConfiguration(int row, const KRGPXTrackConfiguration &configuration);
    void setConfiguration(const QModelIndex &index, const KRGPXTrackConfiguration &configuration);
    void setConfigurationToAll(const KRGPXTrackConfiguration &configuration);

signals:
    /// Tracks were dropped; the first of them is to be selected.
    void pleaseSelectTrack(int row);

private:
    void announceChange(int firstRow, int lastRow);
    void moveDroppedTracks(const QList<int> &rows, int target);

    KRGPXConfiguredTrackList m_tracks;
};
