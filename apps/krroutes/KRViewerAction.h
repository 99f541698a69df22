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

} // namespace KRViewerAction
