#pragma once

#include <QKeySequence>
#include <QString>

class QAction;
class QObject;

/// Makes the actions of menus and tool bars.
namespace KRViewerAction {

/// @p iconKey is one of KRIconRegistry, empty for none. @p parent owns the action.
QAction *make(QObject *parent, const QString &iconKey, const QString &text,
              const QKeySequence &shortcut = QKeySequence());

/// For actions whose text has names in it: without a tool tip of its own a tool button guesses whether the text is
/// markup.
void keepToolTipPlain(QAction *action);

} // namespace KRViewerAction
