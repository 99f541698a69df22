#include "KRGPXTrackMultiFunctionDelegateWidget.h"

#include <KRCore/KRBlinkAnimation.h>
#include <KRGUIWidgets/KRElidedLabel.h>
#include <KRGUIWidgets/KRIconRegistry.h>

#include <QAbstractItemModel>
#include <QHBoxLayout>
#include <QTextDocument>
#include <QToolButton>

#include <array>

namespace {

using RowWidget = KRGPXTrackMultiFunctionDelegateWidget;

struct ButtonKind {
    KRGPXTrackEditOptionsEnum option;
    const char *iconKey;
    const char *toolTip; // %1 is the text of the row
    void (RowWidget::*slot)();
};

/// In the order in which they are laid out.
const std::array<ButtonKind, 4> buttonKinds{{
    {EditTrackEditOption, "ico_editListItem",
     QT_TRANSLATE_NOOP("KRGPXTrackMultiFunctionDelegateWidget", "%1 bearbeiten"), &RowWidget::onEditEventRequested},
    {DeleteTrackEditOption, "ico_deleteListItem",
     QT_TRANSLATE_NOOP("KRGPXTrackMultiFunctionDelegateWidget", "%1 löschen"), &RowWidget::onDeleteEventRequested},
    {ZoomTrackEditOption, "ico_fit_map",
     QT_TRANSLATE_NOOP("KRGPXTrackMultiFunctionDelegateWidget", "<b>Zoome auf</b> %1"),
     &RowWidget::onZoomEventRequested},
    {MarkTrackEditOption, "ico_add_route",
     QT_TRANSLATE_NOOP("KRGPXTrackMultiFunctionDelegateWidget", "<b>Markiere</b> %1"), &RowWidget::onAddEventRequested},
}};

/// Names come from files of others: no markup in them is to have an effect, such as loading a picture.
QString fillToolTip(const QString &pattern, const QString &name)
{
    constexpr int mostCharacters = 200;
    const QString text = name.size() > mostCharacters ? name.left(mostCharacters) + QChar(0x2026) : name;
    if (Qt::mightBeRichText(pattern))
        return pattern.arg(text.toHtmlEscaped());
    const QString toolTip = pattern.arg(text);
    return Qt::mightBeRichText(toolTip) ? QStringLiteral("<qt>%1</qt>").arg(toolTip.toHtmlEscaped()) : toolTip;
}

} // namespace

KRGPXTrackMultiFunctionDelegateWidget::KRGPXTrackMultiFunctionDelegateWidget(const QModelIndex &index,
                                                                             KRGPXTrackEditOptions options,
                                                                             QWidget *parent)
    : QWidget(parent), m_row(index.row()), m_animation(new KRBlinkAnimation(this))
{
    setupUi(index, options);
    if (index.isValid())
        connect(index.model(), &QAbstractItemModel::dataChanged, this, &RowWidget::modelDataChanged);
    connect(m_animation, &KRBlinkAnimation::blink, this, &RowWidget::animate);
}

KRGPXTrackMultiFunctionDelegateWidget::~KRGPXTrackMultiFunctionDelegateWidget() = default;

void KRGPXTrackMultiFunctionDelegateWidget::setupUi(const QModelIndex &index, KRGPXTrackEditOptions options)
{
    auto *layout = new QHBoxLayout(this);
    layout->setSpacing(1);
    layout->setContentsMargins(2, 2, 2, 2);
    const QString text = index.data(Qt::DisplayRole).toString();
    m_label = createTextLabel(text);
    layout->addWidget(m_label, 1);
    for (const ButtonKind &kind : buttonKinds) {
        if (!options.testFlag(kind.option))
            continue;
        auto *button = new QToolButton(this);
        button->setAutoRaise(true);
        KRIconRegistry::instance()->setIcon(button, QLatin1String(kind.iconKey));
        button->setToolTip(fillToolTip(tr(kind.toolTip), text));
        connect(button, &QToolButton::clicked, this, kind.slot);
        layout->addWidget(button, 0);
    }
}

KRElidedLabel *KRGPXTrackMultiFunctionDelegateWidget::createTextLabel(const QString &text)
{
    auto *label = new KRElidedLabel(text, this);
    label->setWordWrap(true);
    return label;
}

bool KRGPXTrackMultiFunctionDelegateWidget::isBlinking() const
{
    return m_animation->isRunning();
}

void KRGPXTrackMultiFunctionDelegateWidget::startAnimation()
{
    m_animation->start();
}

void KRGPXTrackMultiFunctionDelegateWidget::onEditEventRequested()
{
    emit editItem(m_row);
}

void KRGPXTrackMultiFunctionDelegateWidget::onDeleteEventRequested()
{
    emit deleteItem(m_row);
}

void KRGPXTrackMultiFunctionDelegateWidget::onZoomEventRequested()
{
    emit zoomToItem(m_row);
}

void KRGPXTrackMultiFunctionDelegateWidget::onAddEventRequested()
{
    emit addItem(m_row);
}

void KRGPXTrackMultiFunctionDelegateWidget::modelDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    if (m_row < topLeft.row() || m_row > bottomRight.row())
        return;
    // Intended: the tool tips of the buttons keep the text with which they were made.
    m_label->setFullText(topLeft.sibling(m_row, 0).data(Qt::DisplayRole).toString());
    update();
}

void KRGPXTrackMultiFunctionDelegateWidget::animate(int state)
{
    m_label->setAnimationState(state);
    // Not update(): a busy program would merge the short states into one picture.
    m_label->repaint();
}
