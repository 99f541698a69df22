#pragma once

class QPainter;
class QPainterPath;

/**
 * Draws lines on devices that keep them as such, as PDF and SVG do, so that files stay small.
 */
class KRGPXPagePainter
{
public:
    /// Whether the painter draws on such a device.
    static bool isFor(const QPainter *painter);

    /**
     * Draws a path with the painter's pen.
     *
     * Lines beside the page are left out, and of very many those that show nothing. Coordinates are rounded to some
     * 1/10000 of an inch in PDF, where half transparent lines become outlines.
     */
    static void drawPath(QPainter *painter, const QPainterPath &path);
};
