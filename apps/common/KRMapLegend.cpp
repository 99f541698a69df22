#include "KRMapLegend.h"

#include "KRMapFurniture.h"
#include "KRMapLabel.h"
#include "KRTrackSample.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace {

const QColor backColor(255, 255, 255, 225);
const QColor edgeColor(0, 0, 0, 60);
const QColor inkColor(40, 40, 40);

// Pixels of a normal screen.
constexpr double margin = 10.0;
constexpr double padding = 8.0;
constexpr double radius = 8.0;
constexpr double legendLetterHeight = 16.0;
constexpr double sampleDistance = 8.0;
constexpr double widestLegendName = 320.0;

constexpr int mostRows = 12;
// Smaller pictures get a smaller legend.
constexpr double widthOfSmallPicture = 700.0;
constexpr double heightOfSmallPicture = 480.0;
constexpr double largestPartOfWidth = 0.45;
/// In heights of the attribution, which others may stand above.
constexpr double roomForCredits = 2.5;

/// The lowest place of a box that ends at the right margin and is that wide.
double bottomFor(const KRMapProjection &projection, const QSize &size, double factor, double width)
{
    const QRectF attribution = KRMapFurniture::attributionBox(size, factor);
    const QRectF scaleBar = KRMapFurniture::scaleBarBox(size, projection, factor);
    const double bottom = attribution.top() - roomForCredits * attribution.height();
    return scaleBar.right() > size.width() - width ? std::min(bottom, scaleBar.top()) : bottom;
}

} // namespace

struct KRMapLegend::Layout {
    QRectF box;
    double factor = 1.0;
    QFont font;
    QStringList names; ///< of the tracks that have a row
    QString rest; ///< what stands below for the others, empty when there are none
};

KRMapLegend::Layout KRMapLegend::layout(const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                                        const QSize &size, double factor)
{
    Layout layout;
    layout.factor = std::min({factor, size.width() / widthOfSmallPicture, size.height() / heightOfSmallPicture});
    layout.font = KRMapLabel::font(legendLetterHeight * layout.factor);

    const double rowHeight = KRTrackSample::size().height() * layout.factor;
    const double frame = 2.0 * padding * layout.factor;
    const double top = margin * layout.factor;
    const double besideName = frame + (KRTrackSample::size().width() + sampleDistance) * layout.factor;
    const double widest = std::min(widestLegendName * layout.factor, largestPartOfWidth * size.width() - besideName);
    const double room = bottomFor(projection, size, factor, widest + besideName + top) - top - frame;
    const int rows = std::min(mostRows, int(room / rowHeight));
    const int count = selection.count();
    if (count == 0 || rows < std::min(count, 2))
        return layout;

    const int named = count <= rows ? count : rows - 1;
    const QFontMetricsF metrics(layout.font);
    double width = 0.0;
    for (int i = 0; i < named; ++i) {
        const QString name = KRMapLabel::inOneLine(selection.value(i).name(), layout.font, widest);
        layout.names.append(name.isEmpty() ? KRMapLabel::inOneLine(tr("Route %1").arg(i + 1), layout.font, widest)
                                           : name);
        width = std::max(width, metrics.horizontalAdvance(layout.names.last()));
    }
    if (named < count) {
        layout.rest = tr("… und %n weitere", nullptr, count - named);
        width = std::max(width, metrics.horizontalAdvance(layout.rest));
    }
    const QSizeF boxSize(besideName + width, frame + (named + (named < count ? 1 : 0)) * rowHeight);
    layout.box = QRectF(QPointF(size.width() - top - boxSize.width(), top), boxSize);
    return layout;
}

QRectF KRMapLegend::box(const KRGPXTrackSelection &selection, const KRMapProjection &projection, const QSize &size,
                        double factor)
{
    return layout(selection, projection, size, factor).box;
}

void KRMapLegend::paint(QPainter &painter, const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                        const QSize &size, double factor)
{
    const Layout place = layout(selection, projection, size, factor);
    if (place.box.isEmpty())
        return;
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(QPen(edgeColor, place.factor));
    painter.setBrush(backColor);
    painter.drawRoundedRect(place.box, radius * place.factor, radius * place.factor);
    painter.setFont(place.font);
    painter.setPen(inkColor);

    const QSizeF sample = KRTrackSample::size() * place.factor;
    QPointF corner = place.box.topLeft() + QPointF(padding, padding) * place.factor;
    const double nameX = corner.x() + sample.width() + sampleDistance * place.factor;
    const auto drawText = [&](const QString &text) {
        const QRectF row(nameX, corner.y(), place.box.right() - nameX, sample.height());
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
        corner.ry() += sample.height();
    };
    for (int i = 0; i < place.names.size(); ++i) {
        KRTrackSample::paint(painter, selection.value(i), corner, place.factor);
        drawText(place.names.at(i));
    }
    if (!place.rest.isEmpty())
        drawText(place.rest);
    painter.restore();
}
