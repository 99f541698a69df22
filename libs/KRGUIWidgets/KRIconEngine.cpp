#include "KRIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {

QColor colorFor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    return palette.color(QPalette::Active, QPalette::ButtonText);
}

} // namespace

KRIconEngine::KRIconEngine(const QString &fileName) : m_fileName(fileName) { }

void KRIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    const QSizeF pixels = QSizeF(rect.size()) * painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, pixmap(pixels.toSize(), mode, state));
}

QPixmap KRIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/)
{
    const QColor color = colorFor(mode);
    const QString cacheKey =
        QStringLiteral("%1/%2x%3/%4").arg(m_fileName).arg(size.width()).arg(size.height()).arg(color.rgba());
    QPixmap picture;
    if (!QPixmapCache::find(cacheKey, &picture)) {
        picture = render(size, color);
        QPixmapCache::insert(cacheKey, picture);
    }
    return picture;
}

QPixmap KRIconEngine::render(const QSize &size, const QColor &color) const
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    QSvgRenderer renderer(m_fileName);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    return QPixmap::fromImage(image);
}

QString KRIconEngine::key() const
{
    return QStringLiteral("KRIconEngine");
}

QIconEngine *KRIconEngine::clone() const
{
    return new KRIconEngine(*this);
}
