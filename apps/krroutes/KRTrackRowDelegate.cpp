#include "KRTrackRowDelegate.h"

#include <KRPlainText.h>

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolButton>
#include <QToolTip>

namespace {

// Some files have whole web pages as descriptions.
constexpr int longestMarkup = 20000;
constexpr int longestDescription = 600;

/// The text of a description that may or may not be HTML, shortened.
QString plainDescription(const QString &description)
{
    const QString beginning = description.left(longestMarkup);
    const QString trimmed = (Qt::mightBeRichText(beginning) ? KRPlainText::ofHtml(beginning) : beginning).trimmed();
    const QString shown = KRPlainText::beginning(trimmed, longestDescription);
    return shown.size() < trimmed.size() ? shown + QChar(0x2026) : shown;
}

} // namespace

KRTrackRowDelegate::KRTrackRowDelegate(QAbstractItemView *view)
    : KRGPXTrackMultiFunctionDelegate(view, AllTrackEditOptions), m_view(view)
{ }

void KRTrackRowDelegate::setReachableByTab(QWidget *rowWidget, bool isReachable)
{
    const QList<QToolButton *> buttons = rowWidget->findChildren<QToolButton *>();
    for (QToolButton *button : buttons)
        button->setFocusPolicy(isReachable ? Qt::TabFocus : Qt::NoFocus);
}

QString KRTrackRowDelegate::toolTip(const QString &name, const QString &description)
{
    QString text;
    const QString shownName = KRPlainText::shortened(name, KRPlainText::longestName);
    if (!shownName.trimmed().isEmpty())
        text += QStringLiteral("<p><b>%1</b></p>").arg(shownName.toHtmlEscaped());
    const QString plain = plainDescription(description);
    if (!plain.isEmpty())
        text +=
            QStringLiteral("<p>%1</p>").arg(plain.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")));
    return text;
}

QWidget *KRTrackRowDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                          const QModelIndex &index) const
{
    QWidget *const editor = KRGPXTrackMultiFunctionDelegate::createEditor(parent, option, index);
    setReachableByTab(editor, index == m_view->currentIndex());
    return editor;
}

bool KRTrackRowDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                   const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip)
        return KRGPXTrackMultiFunctionDelegate::helpEvent(event, view, option, index);
    const QString text = toolTip(index.data(Qt::DisplayRole).toString(), index.data(Qt::ToolTipRole).toString());
    QToolTip::showText(event->globalPos(), text, view->viewport(), option.rect);
    return true;
}
