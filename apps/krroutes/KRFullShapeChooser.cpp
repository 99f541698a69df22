#include "KRFullShapeChooser.h"

#include "KRFullShapeDelegate.h"

#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <QScopedValueRollback>
#include <QScrollBar>

KRFullShapeChooser::KRFullShapeChooser(QWidget *parent) : QListView(parent)
{
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setSpacing(0);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setItemDelegate(new KRFullShapeDelegate(this));
    setModel(&m_model);
    fitHeight();
}

void KRFullShapeChooser::offerFor(const KRGPXTrackShape &naturalShape)
{
    if (naturalShape == m_naturalShape)
        return;
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    m_naturalShape = naturalShape;
    m_model.fill(naturalShape);
    fitHeight();
}

void KRFullShapeChooser::showLook(const KRGPXTrackConfiguration &configuration, const KRGPXFullShape &shape)
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    m_model.setStrokeColor(configuration.lineColor());
    m_model.setFillColor(configuration.fillColor());
    m_model.setDisplayOptions(configuration.currentDisplayOptions());
    setCurrentIndex(m_model.index(m_model.indexOf(shape)));
}

void KRFullShapeChooser::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    fitHeight();
}

void KRFullShapeChooser::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (!m_isShowing && current.isValid())
        emit shapeChosen(m_model.markerAt(current));
}

void KRFullShapeChooser::fitHeight()
{
    const int tilesInRow = qMax(1, viewport()->width() / KRFullShapeDelegate::tileSize);
    const int rows = qMax(1, (m_model.rowCount() + tilesInRow - 1) / tilesInRow);
    setFixedHeight(rows * KRFullShapeDelegate::tileSize + 2 * frameWidth());
}
