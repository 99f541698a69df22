#include "KRProfileView.h"

#include "KRFigureTexts.h"

#include <KRCore/KRQtCompat.h>

#include <QEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QtConcurrent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int margin = 6; // pixels
constexpr double smallestRangeMetres = 20.0; // so that a plain does not look like a range of hills
constexpr int pointsReadAtOnce = 5000; // takes a few milliseconds

QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

} // namespace

KRProfileView::KRProfileView(QWidget *parent) : QWidget(parent), m_profile(new KRElevationProfile)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Höhenprofil"));
    setAccessibleDescription(emptyText());
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(&m_reader, &QFutureWatcherBase::finished, this, [this] {
        // A future that was only put in to forget the one before has no result.
        if (!m_reader.isCanceled())
            takeProfile(m_reader.result());
    });
}

void KRProfileView::setTrack(const KRGPXTrack &track)
{
    if (m_hasTrack && track == m_track)
        return;
    m_hasTrack = true;
    m_track = track;
    setMarker(-1);
    const auto read = [track] { return SharedProfile(new KRElevationProfile(track)); };
    if (track.countPoints() <= pointsReadAtOnce) {
        m_reader.setFuture(QFuture<SharedProfile>());
        takeProfile(read());
    } else {
        m_isReading = true;
        m_reader.setFuture(QtConcurrent::run(read));
        update();
    }
}

void KRProfileView::clear()
{
    setMarker(-1);
    m_hasTrack = false;
    m_track = KRGPXTrack();
    m_reader.setFuture(QFuture<SharedProfile>());
    takeProfile(SharedProfile(new KRElevationProfile));
}

QSize KRProfileView::sizeHint() const
{
    return QSize(500, 150);
}

QSize KRProfileView::minimumSizeHint() const
{
    return QSize(160, 80);
}

void KRProfileView::takeProfile(const SharedProfile &profile)
{
    m_isReading = false;
    m_profile = profile;
    m_picture = QPixmap();
    setAccessibleDescription(emptyText());
    update();
}

bool KRProfileView::isShowing() const
{
    return m_profile->isDrawable() && !m_isReading;
}

void KRProfileView::setMarker(int index)
{
    if (index == m_marker)
        return;
    m_marker = index;
    update();
    if (index < 0) {
        emit positionHovered(KRGeoPosition());
        return;
    }
    setAccessibleDescription(markerText());
    const KRElevationProfile::Sample &sample = m_profile->at(index);
    emit positionHovered(KRGeoPosition(sample.latitude, sample.longitude));
}

void KRProfileView::moveMarker(double pixels)
{
    layOutAxes();
    const int direction = pixels < 0.0 ? -1 : 1;
    if (m_marker < 0) {
        setMarker(direction > 0 ? 0 : m_profile->count() - 1);
        return;
    }
    const double pixel = m_wayAxis.pixel(m_profile->at(m_marker).wayKm / m_wayUnit) + pixels;
    const int there = m_profile->nearest(m_wayAxis.number(pixel) * m_wayUnit);
    const int next = direction > 0 ? std::max(there, m_marker + 1) : std::min(there, m_marker - 1);
    setMarker(qBound(0, next, m_profile->count() - 1));
}

QString KRProfileView::emptyText() const
{
    if (!m_hasTrack)
        return tr("Keine Route ausgewählt");
    if (m_isReading)
        return tr("Die Route wird gelesen …");
    if (!m_profile->hasElevation())
        return tr("Diese Route hat keine Höhenangaben.");
    return m_profile->isDrawable() ? QString() : tr("Ein einzelner Ort hat kein Höhenprofil.");
}

QString KRProfileView::markerText() const
{
    if (m_marker < 0)
        return QString();
    const KRElevationProfile::Sample &sample = m_profile->at(m_marker);
    QStringList parts{KRFigureTexts::way(sample.wayKm)};
    if (sample.elevation != 0)
        parts.append(KRFigureTexts::elevation(sample.elevation));
    if (sample.hasTime())
        parts.append(KRFigureTexts::timeOfDay(QDateTime::fromMSecsSinceEpoch(sample.timeMs)));
    const double speedKmh = m_profile->speedKmhAt(m_marker);
    if (speedKmh > 0.0)
        parts.append(KRFigureTexts::speed(speedKmh));
    return parts.join(QStringLiteral("  ·  "));
}

void KRProfileView::layOutAxes()
{
    const double metresMissing =
        std::max(0.0, smallestRangeMetres - (double(m_profile->highest()) - m_profile->lowest()));
    const int textHeight = fontMetrics().height();
    const int top = margin + textHeight + margin;
    const int bottom = height() - margin - textHeight - margin;
    m_elevationAxis = KRAxis(m_profile->lowest() - metresMissing / 2.0, m_profile->highest() + metresMissing / 2.0,
                             bottom, top, 1.6 * textHeight, true);

    int textWidth = 0;
    for (const double metres : m_elevationAxis.marks())
        textWidth = std::max(textWidth, fontMetrics().horizontalAdvance(KRFigureTexts::elevation(qRound64(metres))));
    const double left = margin + textWidth + margin;
    m_wayUnit = m_profile->lengthKm() < 1.0 ? 0.001 : 1.0;
    m_wayAxis = KRAxis(0.0, m_profile->lengthKm() / m_wayUnit, left, std::max(left + 1.0, width() - 2.0 * margin),
                       fontMetrics().horizontalAdvance(QStringLiteral("00000 km ")), false);
}

void KRProfileView::updatePicture()
{
    const QSize size = this->size() * devicePixelRatioF();
    if (m_picture.size() == size)
        return;
    layOutAxes();
    m_picture = QPixmap(size);
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(palette().color(QPalette::Base));
    QPainter painter(&m_picture);
    painter.setFont(font());
    painter.setRenderHint(QPainter::Antialiasing);
    paintAxes(painter);
    paintLines(painter);
}

void KRProfileView::paintAxes(QPainter &painter) const
{
    const QColor text = palette().color(QPalette::Text);
    const int textHeight = fontMetrics().height();
    const double left = m_wayAxis.pixel(m_wayAxis.from());
    const double right = m_wayAxis.pixel(m_wayAxis.to());
    const double bottom = m_elevationAxis.pixel(m_elevationAxis.from());
    const double top = m_elevationAxis.pixel(m_elevationAxis.to());
    const QPen gridPen(withAlpha(text, 40), 1.0);

    for (const double metres : m_elevationAxis.marks()) {
        const double y = std::floor(m_elevationAxis.pixel(metres)) + 0.5;
        painter.setPen(gridPen);
        painter.drawLine(QPointF(left, y), QPointF(right, y));
        painter.setPen(text);
        painter.drawText(QRectF(0.0, y - textHeight / 2.0, left - margin, textHeight),
                         Qt::AlignRight | Qt::AlignVCenter, KRFigureTexts::elevation(qRound64(metres)));
    }
    const QString unit = m_wayUnit < 1.0 ? tr("%1 m") : tr("%1 km");
    for (const double way : m_wayAxis.marks()) {
        const double x = std::floor(m_wayAxis.pixel(way)) + 0.5;
        painter.setPen(gridPen);
        painter.drawLine(QPointF(x, top), QPointF(x, bottom));
        painter.setPen(text);
        const QString label = unit.arg(QLocale().toString(way, 'f', m_wayAxis.decimals()));
        const double labelWidth = fontMetrics().horizontalAdvance(label) + 2.0;
        // The first label must not touch the elevations, and the last one must not be cut off.
        const double labelLeft = std::min(std::max(left - 2.0, x - labelWidth / 2.0), width() - labelWidth - 1.0);
        painter.drawText(QRectF(labelLeft, bottom + margin / 2.0, labelWidth, textHeight), Qt::AlignCenter, label);
    }
}

void KRProfileView::paintLines(QPainter &painter) const
{
    const QColor color = palette().color(QPalette::Highlight);
    const double bottom = m_elevationAxis.pixel(m_elevationAxis.from());
    const double left = m_wayAxis.pixel(m_wayAxis.from());
    const double right = m_wayAxis.pixel(m_wayAxis.to());
    const int columns = qRound((right - left) * devicePixelRatioF());
    const QVector<QVector<int>> lines = m_profile->lines(columns);
    for (const QVector<int> &indexes : lines) {
        // Where many points share a pixel the line is a band, which smooth edges would make slow and no prettier.
        const bool isBand = indexes.size() > 2 * columns;
        painter.setRenderHint(QPainter::Antialiasing, !isBand);
        QPolygonF line;
        for (const int index : indexes) {
            const KRElevationProfile::Sample &sample = m_profile->at(index);
            line.append({m_wayAxis.pixel(sample.wayKm / m_wayUnit), m_elevationAxis.pixel(sample.elevation)});
        }
        QPolygonF area = line;
        area.append({line.last().x(), bottom});
        area.append({line.first().x(), bottom});
        painter.setPen(Qt::NoPen);
        painter.setBrush(withAlpha(color, 70));
        painter.drawPolygon(area);
        painter.setPen(QPen(color, isBand ? 0.0 : 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(line);
    }

    const double top = m_elevationAxis.pixel(m_elevationAxis.to());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(withAlpha(palette().color(QPalette::Text), 140), 1.0, Qt::DashLine));
    for (const double gap : m_profile->gaps()) {
        const double x = std::floor(m_wayAxis.pixel(gap / m_wayUnit)) + 0.5;
        painter.drawLine(QPointF(x, top), QPointF(x, bottom));
    }
}

void KRProfileView::paintMarker(QPainter &painter) const
{
    const KRElevationProfile::Sample &sample = m_profile->at(m_marker);
    const double x = m_wayAxis.pixel(sample.wayKm / m_wayUnit);
    const QColor text = palette().color(QPalette::Text);
    painter.setPen(QPen(text, 1.0));
    painter.drawLine(QPointF(x, m_elevationAxis.pixel(m_elevationAxis.from())),
                     QPointF(x, m_elevationAxis.pixel(m_elevationAxis.to())));
    if (sample.elevation != 0) {
        painter.setPen(QPen(palette().color(QPalette::Base), 1.5));
        painter.setBrush(text);
        painter.drawEllipse(QPointF(x, m_elevationAxis.pixel(sample.elevation)), 4.5, 4.5);
    }
    painter.setPen(text);
    const int textWidth = width() - 4 * margin;
    painter.drawText(QRect(2 * margin, margin, textWidth, fontMetrics().height()), Qt::AlignRight,
                     fontMetrics().elidedText(markerText(), Qt::ElideRight, textWidth));
}

void KRProfileView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!m_profile->isDrawable()) {
        painter.fillRect(rect(), palette().color(QPalette::Base));
        painter.setPen(withAlpha(palette().color(QPalette::Text), 160));
        painter.drawText(rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap,
                         emptyText());
        return;
    }
    updatePicture();
    painter.drawPixmap(0, 0, m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_marker >= 0)
        paintMarker(painter);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void KRProfileView::resizeEvent(QResizeEvent *event)
{
    m_picture = QPixmap();
    QWidget::resizeEvent(event);
}

void KRProfileView::changeEvent(QEvent *event)
{
    m_picture = QPixmap();
    QWidget::changeEvent(event);
}

void KRProfileView::mouseMoveEvent(QMouseEvent *event)
{
    if (!isShowing())
        return;
    layOutAxes();
    setMarker(m_profile->nearest(m_wayAxis.number(KRQtCompat::position(event).toPoint().x()) * m_wayUnit));
}

void KRProfileView::leaveEvent(QEvent *event)
{
    setMarker(-1);
    QWidget::leaveEvent(event);
}

void KRProfileView::keyPressEvent(QKeyEvent *event)
{
    const double tenth = (m_wayAxis.pixel(m_wayAxis.to()) - m_wayAxis.pixel(m_wayAxis.from())) / 10.0;
    if (!isShowing()) {
        QWidget::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Left:
        moveMarker(-1.0);
        break;
    case Qt::Key_Right:
        moveMarker(1.0);
        break;
    case Qt::Key_PageUp:
        moveMarker(tenth);
        break;
    case Qt::Key_PageDown:
        moveMarker(-tenth);
        break;
    case Qt::Key_Home:
        setMarker(0);
        break;
    case Qt::Key_End:
        setMarker(m_profile->count() - 1);
        break;
    case Qt::Key_Escape:
        setMarker(-1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void KRProfileView::focusOutEvent(QFocusEvent *event)
{
    // A context menu is about the place that is marked.
    if (event->reason() != Qt::PopupFocusReason)
        setMarker(-1);
    update();
    QWidget::focusOutEvent(event);
}
