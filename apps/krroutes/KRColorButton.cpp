#include "KRColorButton.h"

#include <QColorDialog>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int squareSize = 5; // of the checkerboard, in pixels
constexpr int swatchMargin = 3;

void paintCheckerboard(QPainter &painter, const QRect &rect)
{
    painter.fillRect(rect, Qt::white);
    for (int row = 0; row * squareSize < rect.height(); ++row) {
        for (int column = row % 2; column * squareSize < rect.width(); column += 2) {
            const QRect square(rect.x() + column * squareSize, rect.y() + row * squareSize, squareSize, squareSize);
            painter.fillRect(square & rect, QColor(0xc0, 0xc0, 0xc0));
        }
    }
}

} // namespace

KRColorButton::KRColorButton(const QString &title, QWidget *parent) : QPushButton(parent), m_title(title)
{
    setAccessibleName(title);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, &KRColorButton::openDialog);
}

void KRColorButton::showColor(const QColor &color)
{
    m_color = color;
    const QString opacity = QString::number(qRound(color.alphaF() * 100.0));
    const QString text = tr("%1, zu %2 % deckend").arg(color.name(), opacity);
    setToolTip(QStringLiteral("%1: %2").arg(m_title, text));
    setAccessibleDescription(text);
    update();
}

QSize KRColorButton::sizeHint() const
{
    const QStyleOptionButton option;
    const QSize contents(fontMetrics().averageCharWidth() * 8, fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, contents, this);
}

QSize KRColorButton::minimumSizeHint() const
{
    return sizeHint();
}

void KRColorButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButton, option);

    const QRect contents = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    const QRect swatch = contents.adjusted(swatchMargin, swatchMargin, -swatchMargin, -swatchMargin);
    if (!isEnabled())
        painter.setOpacity(0.4);
    paintCheckerboard(painter, swatch);
    painter.fillRect(swatch, m_color);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
}

void KRColorButton::openDialog()
{
    const QColor before = m_color;
    auto *const dialog = new QColorDialog(before, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    // Dialogs of the desktop do not tell what is being tried.
    dialog->setOptions(QColorDialog::ShowAlphaChannel | QColorDialog::DontUseNativeDialog);
    dialog->setCurrentColor(before);
    dialog->setWindowTitle(m_title);
    connect(dialog, &QColorDialog::currentColorChanged, this, &KRColorButton::takeColor);
    connect(dialog, &QDialog::rejected, this, [this, before] { takeColor(before); });
    dialog->open();
}

void KRColorButton::takeColor(const QColor &color)
{
    if (color == m_color)
        return;
    showColor(color);
    emit colorChanged(color);
}
