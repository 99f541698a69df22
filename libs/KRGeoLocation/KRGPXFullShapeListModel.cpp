#include "KRGPXFullShapeListModel.h"

#include <QIcon>

KRGPXFullShapeListModel::KRGPXFullShapeListModel() = default;
KRGPXFullShapeListModel::~KRGPXFullShapeListModel() = default;

int KRGPXFullShapeListModel::rowCount(const QModelIndex & /*parent*/) const
{
    return m_shapes.count();
}

int KRGPXFullShapeListModel::columnCount(const QModelIndex & /*parent*/) const
{
    return 1;
}

QVariant KRGPXFullShapeListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const KRGPXFullShape shape = markerAt(index);
    switch (role) {
    case Qt::DisplayRole:
        return shape.describe();
    case Qt::DecorationRole:
        return shape.createIcon(effectiveStrokeColor(), effectiveFillColor());
    case Qt::ToolTipRole:
        return shape.toolTip();
    default:
        return {};
    }
}

KRGPXFullShape KRGPXFullShapeListModel::markerAt(int row) const
{
    return m_shapes.value(row);
}

KRGPXFullShape KRGPXFullShapeListModel::markerAt(const QModelIndex &index) const
{
    return markerAt(index.row());
}

int KRGPXFullShapeListModel::indexOf(const KRGPXFullShape &shape) const
{
    return m_shapes.indexOf(shape.normalized());
}

void KRGPXFullShapeListModel::fill(const KRGPXTrackShape &trackShape)
{
    beginResetModel();
    m_shapes.clear();
    const QList<KRGPXTrackShape> trackShapes = trackShape.possibleShapes();
    for (const KRGPXTrackShape &possibleShape : trackShapes) {
        const QList<KRGPXMarkerShape> markerShapes = possibleShape.createMarkerShapes();
        for (const KRGPXMarkerShape &markerShape : markerShapes)
            m_shapes.append(KRGPXFullShape(possibleShape, markerShape));
    }
    endResetModel();
}

QColor KRGPXFullShapeListModel::effectiveStrokeColor() const
{
    return effectiveColor(StrokeDisplayOption, m_strokeColor);
}

QColor KRGPXFullShapeListModel::effectiveFillColor() const
{
    return effectiveColor(FillDisplayOption, m_fillColor);
}

QColor KRGPXFullShapeListModel::effectiveColor(KRGPXTrackDisplayOptionsEnum option, const QColor &color) const
{
    if (wouldBeInvisible())
        return Qt::black;
    return (m_displayOptions & option) != 0 ? color : QColor(Qt::transparent);
}

bool KRGPXFullShapeListModel::wouldBeInvisible() const
{
    const KRGPXTrackDisplayOptions visible = KRGPXTrackDisplayOptions(StrokeDisplayOption) | FillDisplayOption;
    return (m_displayOptions & visible) == 0;
}

void KRGPXFullShapeListModel::setStrokeColor(const QColor &color)
{
    m_strokeColor = color;
    updateVisualization();
}

void KRGPXFullShapeListModel::setFillColor(const QColor &color)
{
    m_fillColor = color;
    updateVisualization();
}

void KRGPXFullShapeListModel::setDisplayOptions(const KRGPXTrackDisplayOptions &options)
{
    m_displayOptions = options;
    updateVisualization();
}

void KRGPXFullShapeListModel::updateVisualization()
{
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {Qt::DecorationRole});
}
