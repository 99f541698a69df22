#pragma once

#include "KRGPXFullShape.h"
#include "KRGPXTrackDisplayOptions.h"

#include <QAbstractListModel>
#include <QColor>

/**
 * The looks to which a track may be switched: its description, tool tip and an icon in the track's own colours.
 *
 * Empty until fill(). The icons are drawn with a black line and a gray filling, and with display options that draw
 * nothing, until the setters say otherwise.
 */
class KRGEOLOCATION_EXPORT KRGPXFullShapeListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    KRGPXFullShapeListModel();
    ~KRGPXFullShapeListModel() override;

    /// Intended: the same for every parent, valid or not.
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /// The default full shape where there is no such row.
    KRGPXFullShape markerAt(int row) const;
    KRGPXFullShape markerAt(const QModelIndex &index) const;
    /// The first row with the normalized @p shape; -1 when there is none.
    int indexOf(const KRGPXFullShape &shape) const;

    /// Lists what a track of this shape may look like; nothing for an unknown or automatic one.
    void fill(const KRGPXTrackShape &trackShape);

    /// Transparent where the line is not drawn; black when neither line nor filling is, so that icons stay visible.
    QColor effectiveStrokeColor() const;
    QColor effectiveFillColor() const;
    /// Whether a track with these display options could not be seen at all.
    bool wouldBeInvisible() const;

    /// Intended: the setters announce new icons even when nothing changes.
    void setStrokeColor(const QColor &color);
    void setFillColor(const QColor &color);
    void setDisplayOptions(const KRGPXTrackDisplayOptions &options);
    /// Announces new icons for all rows.
    void updateVisualization();

private:
    QColor effectiveColor(KRGPXTrackDisplayOptionsEnum option, const QColor &color) const;

    QList<KRGPXFullShape> m_shapes;
    QColor m_strokeColor = Qt::black;
    QColor m_fillColor = Qt::gray;
    KRGPXTrackDisplayOptions m_displayOptions;
};
