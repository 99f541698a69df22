#include "KRIconRegistry.h"

#include "KRIconEngine.h"

#include <KRCore/KRErrorHistory.h>

#include <QAbstractButton>
#include <QAction>
#include <QFile>

#include <memory>

QIcon KRIconRegistry::icon(const QString &iconKey)
{
    const auto known = m_icons.constFind(iconKey);
    if (known != m_icons.constEnd())
        return *known;
    const QString fileName = QStringLiteral(":/icons/%1.svg").arg(iconKey);
    if (!QFile::exists(fileName)) {
        // For developers, not for users. Not remembered: the resource may be registered later.
        KRErrorHistory::report(nullptr, fileName, QStringLiteral("no such icon"));
        return {};
    }
    const QIcon icon(std::make_unique<KRIconEngine>(fileName).release());
    m_icons.insert(iconKey, icon);
    return icon;
}

void KRIconRegistry::setIcon(QAbstractButton *button, const QString &iconKey)
{
    button->setIcon(icon(iconKey));
}

void KRIconRegistry::setIcon(QAction *action, const QString &iconKey)
{
    action->setIcon(icon(iconKey));
}
