#include "KRTrackListView.h"

#include "KRTrackRowDelegate.h"

#include <KRCore/KRQtCompat.h>
#include <KRGUIWidgets/KRElidedLabel.h>
#include <KRGeoLocation/KRGPXTrackListModel.h>
#include <KRGeoLocation/KRGPXTrackMultiFunctionDelegateWidget.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>

#include <memory>

namespace {

using RowWidget = KRGPXTrackMultiFunctionDelegateWidget;

constexpr int insertionMarkHeightPx = 2;
constexpr int currentMarkWidthPx = 3;
constexpr int dragDistancePx = 16;
constexpr int nameIndentPx = 2 + KRElidedLabel::textPaddingPx; // with the margin of the row's widget

QPixmap pictureOfName(const RowWidget *rowWidget)
{
    auto *const label = rowWidget->findChild<KRElidedLabel *>();
    return label->grab(QRect(QPoint(0, 0), label->sizeHint().boundedTo(label->size())));
}

} // namespace

KRTrackListView::KRTrackListView(KRGPXTrackListModel *model, QWidget *parent)
    : QListView(parent), m_model(model), m_delegate(new KRTrackRowDelegate(this)),
      m_insertionMark(new QWidget(viewport()))
{
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setResizeMode(Adjust);
    setDragDropMode(InternalMove);
    setDropIndicatorShown(false);
    m_insertionMark->setBackgroundRole(QPalette::Highlight);
    m_insertionMark->setAutoFillBackground(true);
    m_insertionMark->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_insertionMark->hide();

    setItemDelegate(m_delegate);
    connect(m_delegate, &KRTrackRowDelegate::editItem, this, &KRTrackListView::editRequested);
    connect(m_delegate, &KRTrackRowDelegate::deleteItem, this, &KRTrackListView::deleteRequested);
    connect(m_delegate, &KRTrackRowDelegate::zoomToItem, this, &KRTrackListView::zoomRequested);
    connect(m_delegate, &KRTrackRowDelegate::addItem, this, &KRTrackListView::markRequested);

    setModel(model);
    connect(model, &KRGPXTrackListModel::modelAboutToBeReset, this, [this] { m_rowBeforeReset = currentTrack(); });
    // Comes after the reset of the view and of its selection, which have connected themselves above.
    connect(model, &KRGPXTrackListModel::modelReset, this, &KRTrackListView::restoreCurrentTrack);
    connect(model, &KRGPXTrackListModel::pleaseSelectTrack, this, &KRTrackListView::selectTrack);
    connect(model, &KRGPXTrackListModel::dataChanged, this,
            [this](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                followCurrentTrack(topLeft.row(), bottomRight.row());
            });

    m_closingTimer.setSingleShot(true);
    connect(&m_closingTimer, &QTimer::timeout, this, &KRTrackListView::closeRowsOutOfSight);
}

KRTrackListView::~KRTrackListView() = default;

void KRTrackListView::selectTrack(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    setCurrentIndex(index);
    if (index.isValid())
        scrollTo(index);
    else
        clearSelection();
}

void KRTrackListView::blinkTrack(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    if (!index.isValid())
        return;
    scrollTo(index);
    // It may not have been painted yet.
    openPersistentEditor(index);
    m_delegate->animate(row);
}

void KRTrackListView::restoreCurrentTrack()
{
    const int formerRow = std::exchange(m_rowBeforeReset, -1);
    if (formerRow < 0)
        return;
    const int sameTrack = m_model->tracks().indexOf(m_currentTrack);
    const int row = sameTrack >= 0 ? sameTrack : qMin(formerRow, m_model->rowCount() - 1);
    if (row >= 0)
        selectTrack(row);
    else
        emit currentTrackChanged(row);
}

void KRTrackListView::followCurrentTrack(int firstRow, int lastRow)
{
    const int row = currentTrack();
    if (row < firstRow || row > lastRow)
        return;
    // A change of several rows is a move, one of a single row is a change of the track itself.
    if (firstRow < lastRow && m_model->trackAt(row) != m_currentTrack) {
        const int movedTo = m_model->tracks().indexOf(m_currentTrack, firstRow);
        if (movedTo >= 0 && movedTo <= lastRow) {
            selectTrack(movedTo);
            return;
        }
    }
    rememberCurrentTrack();
}

void KRTrackListView::rememberCurrentTrack()
{
    m_currentTrack = m_model->trackAt(currentIndex());
}

void KRTrackListView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    rememberCurrentTrack();
    updateTabOrder(previous.row(), false);
    updateTabOrder(current.row(), true);
    viewport()->update(visualRect(previous));
    viewport()->update(visualRect(current));
    emit currentTrackChanged(current.row());
}

// Of one row in ten thousand, the user wants to reach the buttons of the current one only.
void KRTrackListView::updateTabOrder(int row, bool isCurrent)
{
    if (QWidget *const rowWidget = indexWidget(m_model->index(row, 0)))
        KRTrackRowDelegate::setReachableByTab(rowWidget, isCurrent);
}

void KRTrackListView::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    m_closingTimer.start();
}

void KRTrackListView::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    m_closingTimer.start();
}

void KRTrackListView::closeRowsOutOfSight()
{
    const int page = viewport()->height();
    const auto rowWidgets = viewport()->findChildren<RowWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const RowWidget *rowWidget : rowWidgets) {
        const QModelIndex index = m_model->index(rowWidget->row(), 0);
        const QRect rect = visualRect(index);
        const bool isNear = rect.bottom() > -page && rect.top() < 2 * page;
        if (isNear || rowWidget->isBlinking() || rowWidget->isAncestorOf(QApplication::focusWidget()))
            continue;
        closePersistentEditor(index);
    }
}

void KRTrackListView::paintEvent(QPaintEvent *event)
{
    if (m_model->rowCount() == 0) {
        paintInvitation();
    } else {
        paintCurrentRow();
        paintMissingNames();
    }
    QListView::paintEvent(event);
}

void KRTrackListView::paintCurrentRow()
{
    if (!currentIndex().isValid())
        return;
    // A tint, as the widgets of the rows draw their texts and icons in the usual colors.
    const QRect row = visualRect(currentIndex());
    const QColor highlight = palette().color(QPalette::Highlight);
    QColor tint = highlight;
    tint.setAlphaF(hasFocus() ? 0.3 : 0.18);
    QPainter painter(viewport());
    painter.fillRect(row, tint);
    const int x = isRightToLeft() ? row.right() - currentMarkWidthPx + 1 : row.left();
    painter.fillRect(x, row.top(), currentMarkWidthPx, row.height(), highlight);
}

void KRTrackListView::paintMissingNames()
{
    // As the legend of the map calls them. The row's widget shows no text, so this can be seen through it.
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    for (int row = qMax(0, indexAt(QPoint(0, 0)).row()); row < m_model->rowCount(); ++row) {
        const QRect rect = visualRect(m_model->index(row, 0));
        if (rect.top() > viewport()->height())
            break;
        if (m_model->index(row, 0).data().toString().simplified().isEmpty())
            painter.drawText(rect.adjusted(nameIndentPx, 0, -nameIndentPx, 0), Qt::AlignVCenter,
                             tr("Route %1").arg(row + 1));
    }
}

void KRTrackListView::paintInvitation()
{
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("Noch keine Routen. Dateien öffnen oder hierher ziehen."));
}

void KRTrackListView::keyPressEvent(QKeyEvent *event)
{
    const int row = currentTrack();
    if (row < 0)
        return QListView::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit editRequested(row);
        break;
    case Qt::Key_Space:
        emit zoomRequested(row);
        break;
    default:
        QListView::keyPressEvent(event);
    }
}

void KRTrackListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QListView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(KRQtCompat::position(event).toPoint());
    if (index.isValid() && event->button() == Qt::LeftButton)
        emit zoomRequested(index.row());
}

void KRTrackListView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QPoint position = currentIndex().isValid() ? visualRect(currentIndex()).center() : QPoint();
        emit contextMenuRequested(currentTrack(), viewport()->mapToGlobal(position));
    } else {
        emit contextMenuRequested(indexAt(event->pos()).row(), event->globalPos());
    }
}

void KRTrackListView::moveCurrentTrack(int to)
{
    // As a drop of it would.
    const std::unique_ptr<QMimeData> dragged(m_model->mimeData({currentIndex()}));
    if (m_model->isValidRow(to))
        m_model->dropMimeData(dragged.get(), Qt::MoveAction, to, 0, QModelIndex());
}

void KRTrackListView::startDrag(Qt::DropActions supportedActions)
{
    const QModelIndex index = currentIndex();
    if (!index.isValid())
        return;
    auto *drag = new QDrag(this); // Qt deletes it
    drag->setMimeData(m_model->mimeData({index}));
    // The name, beside the pointer, so that the mark between the rows stays to be seen.
    if (const auto *const rowWidget = qobject_cast<RowWidget *>(indexWidget(index))) {
        const QPixmap picture = pictureOfName(rowWidget);
        drag->setPixmap(picture);
        drag->setHotSpot(QPoint(-dragDistancePx, qRound(picture.height() / picture.devicePixelRatio() / 2.0)));
    }
    drag->exec(supportedActions, Qt::MoveAction);
    m_insertionMark->hide();
}

void KRTrackListView::dragEnterEvent(QDragEnterEvent *event)
{
    QListView::dragEnterEvent(event);
    // Files are for the window around.
    event->setAccepted(event->source() == this);
}

void KRTrackListView::dragMoveEvent(QDragMoveEvent *event)
{
    QListView::dragMoveEvent(event); // scrolls near the edges
    event->setAccepted(event->source() == this);
    if (event->isAccepted())
        showInsertionMark(gapAt(KRQtCompat::dropPosition(event)));
}

void KRTrackListView::dragLeaveEvent(QDragLeaveEvent *event)
{
    QListView::dragLeaveEvent(event);
    m_insertionMark->hide();
}

void KRTrackListView::dropEvent(QDropEvent *event)
{
    m_insertionMark->hide();
    stopAutoScroll();
    setState(NoState);
    event->setAccepted(event->source() == this);
    if (event->isAccepted())
        dropCurrentTrack(KRQtCompat::dropPosition(event));
}

void KRTrackListView::dropCurrentTrack(const QPoint &position)
{
    // The rows below the old place move up by one when the track is taken from there.
    const int gap = gapAt(position);
    moveCurrentTrack(gap > currentTrack() ? gap - 1 : gap);
}

int KRTrackListView::gapAt(const QPoint &position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid())
        return m_model->rowCount();
    return position.y() > visualRect(index).center().y() ? index.row() + 1 : index.row();
}

void KRTrackListView::showInsertionMark(int gap)
{
    const QRect row = visualRect(m_model->index(qMin(gap, m_model->rowCount() - 1), 0));
    const int y = gap < m_model->rowCount() ? row.top() : row.bottom() + 1;
    const int lowest = viewport()->height() - insertionMarkHeightPx;
    m_insertionMark->setGeometry(row.left(), qBound(0, y - insertionMarkHeightPx / 2, lowest), row.width(),
                                 insertionMarkHeightPx);
    m_insertionMark->raise();
    m_insertionMark->show();
}
