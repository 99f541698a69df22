#include "KRViewerAction.h"

#include "KRViewerIcons.h"

#include <KRPlainText.h>

#include <QAction>

QAction *KRViewerAction::make(QObject *parent, const QString &iconKey, const QString &text,
                              const QKeySequence &shortcut)
{
    auto *const action = new QAction(text, parent);
    if (!iconKey.isEmpty())
        KRViewerIcons::setIcon(action, iconKey);
    action->setShortcut(shortcut);
    return action;
}

void KRViewerAction::keepToolTipPlain(QAction *action)
{
    // The icon text is the text without marks of keys.
    const auto update = [action] { action->setToolTip(KRPlainText::toolTip(action->iconText())); };
    QObject::connect(action, &QAction::changed, action, update);
    update();
}
