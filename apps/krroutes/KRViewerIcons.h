#pragma once

class QAction;
class QIcon;
class QString;

/**
 * The icons of the viewer's actions, beside those that the libraries bring.
 *
 * A key is the name of a file in data/icons without its suffix, such as "ico_open" or "ico_fit_map". See
 * KRIconRegistry for colours, sizes and unknown keys. GUI thread only.
 */
namespace KRViewerIcons {

QIcon icon(const QString &iconKey);
void setIcon(QAction *action, const QString &iconKey);
/// Of the program itself; in colours of its own.
QIcon applicationIcon();

} // namespace KRViewerIcons
