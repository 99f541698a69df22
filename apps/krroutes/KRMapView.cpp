#include "KRMapView.h"

#include "KRMapGestures.h"

#include <KRCore/KRQtCompat.h>
#include <KRMapArea.h>
#include <KRMapFurniture.h>
#include <KRMapGround.h>
#include <KRPlainText.h>

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace {

// Pixels.
constexpr double clickTolerance = 5.0;
constexpr double markerRadius = 7.0;

constexpr double zoomStep = 2.0;
constexpr double shareOfArrowKey = 0.25;

constexpr QColor markerColor(214, 30, 60);

bool hasSameScale(const KRMapViewport &a, const KRMapViewport &b)
{
    return a.devicePixelRatio() == b.devicePixelRatio() && std::abs(a.worldWidth() / b.worldWidth() - 1.0) < 1e-9;
}

void paintPicture(QPainter *painter, const KRMapPicture &picture, const KRMapViewport &viewport)
{
    if (picture.image.isNull())
        return;
    const QRectF rect = viewport.rectOf(picture.viewport);
    if (!hasSameScale(viewport, picture.viewport)) {
        painter->drawImage(rect, picture.image);
        return;
    }
    painter->save();
    painter->translate(rect.topLeft());
    painter->scale(1.0 / viewport.devicePixelRatio(), 1.0 / viewport.devicePixelRatio());
    painter->drawImage(0, 0, picture.image);
    painter->restore();
}

} // namespace

KRMapView::KRMapView(QWidget *parent) : QWidget(parent), m_gestures(new KRMapGestures(this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(120, 90);
    setAccessibleName(tr("Karte"));
    setAccessibleDescription(
        tr("Pfeiltasten verschieben die Karte, Plus und Minus ändern den Maßstab, Pos1 zeigt alle Routen."));
    m_viewport = m_viewport.resized(size(), devicePixelRatioF());

    connect(m_gestures, &KRMapGestures::panned, this, &KRMapView::pan);
    connect(m_gestures, &KRMapGestures::zoomed, this, &KRMapView::zoomAbout);
    connect(m_gestures, &KRMapGestures::clicked, this, &KRMapView::click);
    connect(&m_tracksThread, &KRMapTracksThread::pickerMade, this, &KRMapView::takePicker);
    connect(&m_groundThread, &KRMapGroundThread::drawn, this, [this](const KRMapPicture &picture) {
        m_groundPicture = picture;
        update();
    });
    connect(&m_tracksThread, &KRMapTracksThread::drawn, this, [this](const KRMapPicture &picture) {
        m_tracksPicture = picture;
        update();
    });
    connect(&m_tracksThread, &KRMapTracksThread::legendDrawn, this, [this](const QImage &image, const QPoint &topLeft) {
        m_legend = image;
        m_legendCorner = topLeft;
        update();
    });
    connect(&m_groundThread, &KRMapDrawingThread::taskDone, this, [this](int number) { m_groundTaskDone = number; });
    connect(&m_tracksThread, &KRMapDrawingThread::taskDone, this, [this](int number) { m_tracksTaskDone = number; });
}

KRMapView::~KRMapView() = default;

void KRMapView::setTracks(const KRGPXTrackSelection &selection)
{
    m_selection = selection;
    ++m_selectionNumber;
    requestDrawing();
}

void KRMapView::setGround(KRMapGround *ground)
{
    disconnect(m_groundChanges);
    m_ground = ground;
    m_groundThread.setGround(ground);
    m_tracksThread.setGround(ground);
    const auto redraw = [this] {
        ++m_groundNumber;
        requestDrawing();
    };
    if (ground != nullptr)
        m_groundChanges = connect(ground, &KRMapGround::changed, this, redraw);
    redraw();
}

void KRMapView::setCurrentTrack(int row)
{
    if (m_currentRow == row)
        return;
    m_currentRow = row;
    requestDrawing();
}

void KRMapView::setMarker(const KRGeoPosition &position)
{
    m_marker = position;
    update();
}

void KRMapView::setLabels(bool isPainted)
{
    m_hasLabels = isPainted;
    requestDrawing();
}

void KRMapView::setLegend(bool isPainted)
{
    m_hasLegend = isPainted;
    requestDrawing();
}

void KRMapView::setViewport(const KRMapViewport &viewport)
{
    m_wish.isOpen = false;
    changeViewport(viewport.resized(size(), devicePixelRatioF()));
}

bool KRMapView::isUpToDate() const
{
    return m_groundTaskDone == m_taskNumber && m_tracksTaskDone == m_taskNumber;
}

KRTrackPicker::Hit KRMapView::hitAt(const QPoint &pixel) const
{
    if (m_pickerNumber == m_selectionNumber)
        return m_picker.hitAt(pixel, m_viewport, clickTolerance);
    KRTrackPicker::Hit beside;
    beside.position = m_viewport.positionAt(pixel);
    return beside;
}

QSize KRMapView::sizeHint() const
{
    return QSize(800, 600);
}

void KRMapView::showAll()
{
    showTrack(-1);
}

void KRMapView::showTrack(int row)
{
    m_wish = {true, row};
    fulfilWish();
}

void KRMapView::zoomIn()
{
    zoomAbout(rect().center(), zoomStep);
}

void KRMapView::zoomOut()
{
    zoomAbout(rect().center(), 1.0 / zoomStep);
}

void KRMapView::changeViewport(const KRMapViewport &viewport)
{
    if (viewport == m_viewport)
        return;
    m_viewport = viewport;
    requestDrawing();
    update();
    emit viewportChanged();
    if (underMouse())
        hover(mapFromGlobal(QCursor::pos()));
}

void KRMapView::pan(const QPointF &way)
{
    m_wish.isOpen = false;
    changeViewport(m_viewport.panned(way));
}

void KRMapView::zoomAbout(const QPointF &pixel, double factor)
{
    m_wish.isOpen = false;
    changeViewport(m_viewport.zoomed(factor, pixel));
}

void KRMapView::requestDrawing()
{
    const KRMapDrawingThread::Task task{++m_taskNumber,    m_viewport,   m_groundNumber, m_selection,
                                        m_selectionNumber, m_currentRow, m_hasLabels,    m_hasLegend};
    m_groundThread.draw(task);
    m_tracksThread.draw(task);
}

// A window that was not seen yet has not got its size, so that the wish stays open for another one.
void KRMapView::fulfilWish()
{
    if (!m_wish.isOpen || m_pickerNumber != m_selectionNumber)
        return;
    m_wish.isOpen = !m_wasPainted;
    if (m_wish.row >= 0 && !m_selection.isValidRow(m_wish.row))
        return;
    KRGeoPositionRect area = m_wish.row >= 0 ? m_picker.areaOf(m_wish.row) : m_picker.area();
    area = area.isValid() ? KRMapArea::padded(area) : KRGeoPositionRect::europeanUnion();
    changeViewport(m_viewport.fitted(area, 0));
}

void KRMapView::takePicker(const KRTrackPicker &picker, int selectionNumber)
{
    m_picker = picker;
    m_pickerNumber = selectionNumber;
    fulfilWish();
}

void KRMapView::hover(const QPoint &pixel)
{
    const KRTrackPicker::Hit hit = hitAt(pixel);
    setCursor(m_gestures->isDragging() ? Qt::ClosedHandCursor
              : hit.isValid()          ? Qt::PointingHandCursor
                                       : Qt::ArrowCursor);
    emit positionHovered(m_viewport.positionAt(pixel));
}

void KRMapView::click(const QPoint &pixel)
{
    const KRTrackPicker::Hit hit = hitAt(pixel);
    if (hit.isValid())
        emit trackClicked(hit.row);
    else if (hit.position.isValid())
        emit positionClicked(hit.position);
}

bool KRMapView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *const help = static_cast<QHelpEvent *>(event);
    showToolTip(help->pos(), help->globalPos());
    return true;
}

void KRMapView::showToolTip(const QPoint &pixel, const QPoint &globalPosition)
{
    const KRTrackPicker::Hit hit = hitAt(pixel);
    const QString name = hit.isValid() ? m_selection.tracks().at(hit.row).name() : QString();
    QToolTip::showText(globalPosition, KRPlainText::toolTip(name), this);
}

void KRMapView::paintEvent(QPaintEvent *)
{
    m_wasPainted = true;
    if (m_viewport.devicePixelRatio() != devicePixelRatioF())
        changeViewport(m_viewport.resized(size(), devicePixelRatioF()));
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    paintPicture(&painter, m_groundPicture, m_viewport);
    paintPicture(&painter, m_tracksPicture, m_viewport);
    paintMarker(&painter);
    paintFurniture(&painter);
    paintFocusFrame(&painter);
}

void KRMapView::paintMarker(QPainter *painter) const
{
    if (!m_marker.isValid())
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(markerColor);
    painter->setPen(QPen(Qt::white, 2.5));
    QPointF pixel = m_viewport.pixelOf(m_marker);
    pixel.rx() -= m_viewport.worldWidth() * std::floor((pixel.x() + markerRadius) / m_viewport.worldWidth());
    for (; pixel.x() < width() + markerRadius; pixel.rx() += m_viewport.worldWidth())
        painter->drawEllipse(pixel, markerRadius, markerRadius);
    painter->restore();
}

void KRMapView::paintFurniture(QPainter *painter) const
{
    const QSize size = m_viewport.deviceSize();
    const double factor = KRMapDrawingThread::furnitureFactor * m_viewport.devicePixelRatio();
    painter->save();
    painter->scale(1.0 / m_viewport.devicePixelRatio(), 1.0 / m_viewport.devicePixelRatio());
    KRMapFurniture::paintScaleBar(painter, size, m_viewport.projection(), factor);
    if (m_ground != nullptr)
        KRMapFurniture::paintCredits(painter, size, *m_ground, factor);
    painter->drawImage(m_legendCorner, m_legend);
    painter->restore();
}

void KRMapView::paintFocusFrame(QPainter *painter) const
{
    if (!hasFocus())
        return;
    painter->setPen(QPen(palette().color(QPalette::Highlight), 2.0));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0));
}

void KRMapView::resizeEvent(QResizeEvent *)
{
    changeViewport(m_viewport.resized(size(), devicePixelRatioF()));
    fulfilWish();
}

void KRMapView::mouseMoveEvent(QMouseEvent *event)
{
    hover(KRQtCompat::position(event).toPoint());
}

void KRMapView::mouseReleaseEvent(QMouseEvent *event)
{
    hover(KRQtCompat::position(event).toPoint());
}

void KRMapView::keyPressEvent(QKeyEvent *event)
{
    const double step = shareOfArrowKey * qMin(width(), height());
    const bool isPlain = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
    switch (isPlain ? event->key() : 0) {
    case Qt::Key_Left:
        return pan(QPointF(step, 0.0));
    case Qt::Key_Right:
        return pan(QPointF(-step, 0.0));
    case Qt::Key_Up:
        return pan(QPointF(0.0, step));
    case Qt::Key_Down:
        return pan(QPointF(0.0, -step));
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift on many keyboards
        return zoomIn();
    case Qt::Key_Minus:
        return zoomOut();
    case Qt::Key_Home:
        return showAll();
    default:
        QWidget::keyPressEvent(event);
    }
}

void KRMapView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() != QContextMenuEvent::Keyboard) {
        const KRTrackPicker::Hit hit = hitAt(event->pos());
        if (hit.position.isValid())
            emit trackContextMenuRequested(hit.row, hit.position, event->globalPos());
        return;
    }
    const int row = m_selection.isValidRow(m_currentRow) ? m_currentRow : -1;
    emit trackContextMenuRequested(row, m_viewport.center(), mapToGlobal(rect().center()));
}

void KRMapView::leaveEvent(QEvent *)
{
    emit positionHovered(KRGeoPosition());
}
