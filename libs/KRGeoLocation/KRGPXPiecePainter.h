#pragma once

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRect>

/**
 * A second painter on the pixels of an image, for one piece of it after the other.
 *
 * The engine's own clip keeps the rasteriser from all work outside the piece, which the clip of a painter does not.
 * Coordinates stay those of the image: moved ones would not round to the same fractions of a pixel.
 */
class KRGPXPiecePainter
{
public:
    /// The image must be the painter's. Both stay with the caller.
    KRGPXPiecePainter(const QPainter *painter, const QImage *image)
        : m_original(painter),
          m_image(pixelsOf(image), image->width(), image->height(), image->bytesPerLine(), image->format())
    { }

    /// What the painter of the image paints on. Intended: no detaching and no copy.
    static uchar *pixelsOf(const QImage *image) { return const_cast<uchar *>(image->constBits()); }

    /// Calls @p paint with a painter that has the hints, the mode, the opacity and the transform of the other one.
    template <typename Paint>
    void paint(const QRect &piece, const Paint &paint)
    {
        m_image.paintEngine()->setSystemClip(piece);
        QPainter painter(&m_image);
        painter.setRenderHints(m_original->renderHints());
        painter.setCompositionMode(m_original->compositionMode());
        painter.setOpacity(m_original->opacity());
        painter.setTransform(m_original->deviceTransform());
        paint(&painter);
    }

private:
    const QPainter *const m_original;
    QImage m_image;
};
