#include "KRGPXTrackListModel.h"

#include "KRGPXTrackSelection.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

#include <memory>
#include <vector>

namespace {

const QString trackMimeType = QStringLiteral("application/gpxtrack");

/// The rows that mimeData() has written; what is no row of @p rowCount, or a row twice, is left out.
QList<int> readRows(const QByteArray &payload, int rowCount)
{
    QDataStream stream(payload);
    QList<int> rows;
    std::vector<bool> isKnown(static_cast<std::size_t>(rowCount), false);
    while (!stream.atEnd()) {
        QString text;
        stream >> text;
        if (stream.status() != QDataStream::Ok)
            break;
        bool isNumber = false;
        const int row = text.toInt(&isNumber);
        if (!isNumber || row < 0 || row >= rowCount)
            continue;
        // A table view hands in both columns of each row.
        std::vector<bool>::reference known = isKnown[static_cast<std::size_t>(row)];
        if (!known)
            rows += row;
        known = true;
    }
    return rows;
}

/// Where a row is to be found once the row @p from has been moved to @p to.
int rowAfterMove(int row, int from, int to)
{
    if (row == from)
        return to;
    if (from < row && row <= to)
        return row - 1;
    if (to <= row && row < from)
        return row + 1;
    return row;
}

} // namespace

KRGPXTrackListModel::~KRGPXTrackListModel() = default;

int KRGPXTrackListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_tracks.count();
}

int KRGPXTrackListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QModelIndex KRGPXTrackListModel::parent(const QModelIndex & /*child*/) const
{
    return {};
}

Qt::ItemFlags KRGPXTrackListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    return Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled | Qt::ItemIsEnabled;
}

QVariant KRGPXTrackListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return section == 0 ? QVariant(tr("Name")) : QVariant();
}

Qt::DropActions KRGPXTrackListModel::supportedDropActions() const
{
    return Qt::MoveAction;
}

QStringList KRGPXTrackListModel::mimeTypes() const
{
    return {trackMimeType};
}

QVariant KRGPXTrackListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !isValidRow(index.row()))
        return {};
    const KRGPXConfiguredTrack &track = m_tracks.at(index.row());
    switch (role) {
    case Qt::ToolTipRole:
        return track.description();
    case Qt::EditRole:
        return track.name();
    case Qt::DisplayRole:
        return index.column() == 0 ? QVariant(track.name()) : QVariant();
    default:
        return {};
    }
}

bool KRGPXTrackListModel::setData(const QModelIndex & /*index*/, const QVariant & /*value*/, int /*role*/)
{
    return false;
}

QMimeData *KRGPXTrackListModel::mimeData(const QModelIndexList &indexes) const
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    for (const QModelIndex &index : indexes) {
        if (index.isValid())
            stream << QString::number(index.row());
    }
    auto data = std::make_unique<QMimeData>();
    data->setData(trackMimeType, payload);
    return data.release();
}

bool KRGPXTrackListModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                       const QModelIndex &parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    if (data == nullptr || !canDropMimeData(data, action, row, column, parent))
        return false;
    if (m_tracks.isEmpty())
        return true;

    const int lastRow = m_tracks.count() - 1;
    int target = row == -1 && column == -1 ? parent.row() : row;
    // Between the last item and the end of the view, Qt names the row after the last.
    if (target < 0 || target > lastRow)
        target = lastRow;
    moveDroppedTracks(readRows(data->data(trackMimeType), m_tracks.count()), target);
    emit pleaseSelectTrack(target);
    return true;
}

void KRGPXTrackListModel::moveDroppedTracks(const QList<int> &rows, int target)
{
    QList<QPair<int, int>> moves;
    for (int row : rows) {
        // Intended: the row as it was dragged, although moves before this one may have put another track there.
        // Only behind the last row the track itself is followed, so that dragged tracks come to stand at the end.
        const int lastRow = m_tracks.count() - 1;
        if (target > lastRow) {
            for (const QPair<int, int> &move : std::as_const(moves))
                row = rowAfterMove(row, move.first, move.second);
        }
        const int to = qMin(target, lastRow);
        moveTrack(row, to);
        moves.append({row, to});
        ++target;
    }
}

KRGPXConfiguredTrack KRGPXTrackListModel::trackAt(const QModelIndex &index) const
{
    return trackAt(index.row());
}

KRGPXConfiguredTrack KRGPXTrackListModel::trackAt(int row) const
{
    return m_tracks.value(row);
}

void KRGPXTrackListModel::setSelection(const KRGPXTrackSelection &selection)
{
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    if (m_tracks == tracks)
        return;
    beginResetModel();
    m_tracks = tracks;
    endResetModel();
}

void KRGPXTrackListModel::addTracks(const KRGPXConfiguredTrackList &tracks)
{
    beginResetModel();
    m_tracks += tracks;
    endResetModel();
}

void KRGPXTrackListModel::remove(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    beginResetModel();
    if (isValidRow(index.row()))
        m_tracks.removeAt(index.row());
    endResetModel();
}

void KRGPXTrackListModel::moveTrack(int from, int to)
{
    if (from == to || !isValidRow(from))
        return;
    m_tracks.moveTrack(from, to);
    const int lastRow = m_tracks.count() - 1;
    announceChange(qBound(0, qMin(from, to), lastRow), qBound(0, qMax(from, to), lastRow));
}

void KRGPXTrackListModel::setConfiguration(int row, const KRGPXTrackConfiguration &configuration)
{
    if (m_tracks.setConfiguration(row, configuration))
        announceChange(row, row);
}

void KRGPXTrackListModel::setConfiguration(const QModelIndex &index, const KRGPXTrackConfiguration &configuration)
{
    setConfiguration(index.row(), configuration);
}

void KRGPXTrackListModel::setConfigurationToAll(const KRGPXTrackConfiguration &configuration)
{
    // A receiver of dataChanged() may change the number of rows.
    for (int row = 0; row < rowCount(); ++row)
        setConfiguration(row, configuration);
}

void KRGPXTrackListModel::announceChange(int firstRow, int lastRow)
{
    emit dataChanged(index(firstRow, 0), index(lastRow, columnCount() - 1));
}
