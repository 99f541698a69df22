#pragma once

#include "KRGUIWidgetsExport.h"

#include <KRCore/KRSingleton.h>

#include <QHash>
#include <QIcon>

class QAbstractButton;
class QAction;

/**
 * The icons of libraries and programs by their keys: the icon "ico_fit_map" is the resource ":/icons/ico_fit_map.svg".
 *
 * Whoever brings icons puts them under that resource folder. Icons are drawn in the colours of the application's
 * palette, follow when it changes, and are sharp at every pixel ratio. All users of a key share one icon. A key
 * without a file gives a null icon, and a warning in the category "kr.io". GUI thread only.
 */
class KRGUIWIDGETS_EXPORT KRIconRegistry : public KRSingleton<KRIconRegistry>
{
public:
    QIcon icon(const QString &iconKey);
    void setIcon(QAbstractButton *button, const QString &iconKey);
    void setIcon(QAction *action, const QString &iconKey);

private:
    QHash<QString, QIcon> m_icons;
};
