#include "KRViewerIcons.h"

#include <KRGUIWidgets/KRIconRegistry.h>

// Outside any namespace, as the macro demands.
static void registerIcons()
{
    Q_INIT_RESOURCE(krroutes_icons);
}

namespace {

/// The registry, once it can find the icons of this static library.
KRIconRegistry *registry()
{
    static KRIconRegistry *const theRegistry = [] {
        registerIcons();
        return KRIconRegistry::instance();
    }();
    return theRegistry;
}

} // namespace

QIcon KRViewerIcons::icon(const QString &iconKey)
{
    return registry()->icon(iconKey);
}

void KRViewerIcons::setIcon(QAction *action, const QString &iconKey)
{
    registry()->setIcon(action, iconKey);
}

QIcon KRViewerIcons::applicationIcon()
{
    registerIcons();
    return QIcon(QStringLiteral(":/icons/krroutes.svg"));
}
