#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

class KRMapComposition;
class QPagedPaintDevice;
class QPageLayout;

/**
 * Turns maps into the bytes of picture files.
 *
 * SVG and PDF hold lines, areas and text. A pixel of the map is a unit of the drawing there, and 96 of them, times the
 * factor of the map, are an inch; only maps of more than five metres come out smaller in PDF, which knows no larger
 * pages.
 */
class KRPictureFile
{
public:
    static constexpr int largestSidePx = 32767; ///< QPainter's raster engine ends there
    /// The same in pixels for one of the formats, which may know less.
    static int largestSideOf(const QByteArray &format);

    static QList<QByteArray> formats() { return {"png", "jpeg", "webp", "svg", "pdf"}; }

    /// Whether it keeps lines, areas and text as such.
    static bool isVector(const QByteArray &format) { return format == "svg" || format == "pdf"; }

    /// The format of formats() that the suffix stands for, empty for any other.
    static QByteArray formatOf(const QString &fileName);

    /// Encodes in a format of formatOf(). Formats without transparency get a white ground. Null when it fails.
    /// SVG and PDF carry the title.
    static QByteArray encode(const KRMapComposition &map, const QByteArray &format, const QString &title);

    /// A PDF of one page, null when @p paint says that it failed.
    static QByteArray encodePdf(const QPageLayout &layout, int dotsPerInch, const QString &title,
                                const std::function<bool(QPagedPaintDevice *page)> &paint);
};
