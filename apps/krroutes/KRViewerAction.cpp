#include "KRViewerAction.h"

#include "KRViewerIcons.h"

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
