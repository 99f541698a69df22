#include "KRPenStyleBox.h"

#include <QEvent>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>

namespace {

constexpr QSize pictureSize(48, 12);

} // namespace

KRPenStyleBox::KRPenStyleBox(QWidget *parent) : QComboBox(parent)
{
    addItem(tr("durchgezogen"), int(Qt::SolidLine));
    addItem(tr("gestrichelt"), int(Qt::DashLine));
    addItem(tr("gepunktet"), int(Qt::DotLine));
    addItem(tr("Strich, Punkt"), int(Qt::DashDotLine));
    addItem(tr("Strich, Punkt, Punkt"), int(Qt::DashDotDotLine));
    setIconSize(pictureSize);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(12);
    updateIcons();
    connect(this, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { emit penStyleChanged(penStyle()); });
}

KRPenStyle KRPenStyleBox::penStyle() const
{
    return currentIndex() < 0 ? KRPenStyle() : KRPenStyle(currentData().toInt());
}

void KRPenStyleBox::showPenStyle(const KRPenStyle &style)
{
    const QSignalBlocker blocker(this);
    setCurrentIndex(findData(style.number()));
}

void KRPenStyleBox::changeEvent(QEvent *event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateIcons();
}

void KRPenStyleBox::updateIcons()
{
    for (int i = 0; i < count(); ++i) {
        QPixmap picture(pictureSize * devicePixelRatioF());
        picture.setDevicePixelRatio(devicePixelRatioF());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QPen pen(palette().color(QPalette::Text), 2.0);
        KRPenStyle(itemData(i).toInt()).modifyPen(pen);
        painter.setPen(pen);
        painter.drawLine(2, pictureSize.height() / 2, pictureSize.width() - 2, pictureSize.height() / 2);
        painter.end();
        setItemIcon(i, QIcon(picture));
    }
}
