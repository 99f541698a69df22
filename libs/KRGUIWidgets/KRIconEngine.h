#pragma once

#include <QIconEngine>

class QColor;

/**
 * Draws one of our icons sharply at any size, in the colours that the application's palette has at that moment.
 *
 * The picture is an SVG file of which only the opacity counts; buttons, menus and lists thus follow a change of the
 * palette by themselves. Pictures are kept in QPixmapCache, so that many users of an icon share them. GUI thread only.
 */
class KRIconEngine : public QIconEngine
{
public:
    explicit KRIconEngine(const QString &fileName);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QString key() const override;
    QIconEngine *clone() const override;

private:
    QPixmap render(const QSize &size, const QColor &color) const;

    QString m_fileName;
};
