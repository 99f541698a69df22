#include "KRTrackSelectionFactory.h"

#include "KRTrackSelectionFactoryGPXFile.h"
#include "KRTrackSelectionFactoryKmlFile.h"

#include <KRCore/KRLogger.h>
#include <KRGUIWidgets/KRRequestDiskAccess.h>

#include <QObject>
#include <QUrl>

KRTrackSelectionFactory::KRTrackSelectionFactory()
{
    m_factories.push_back(std::make_unique<KRTrackSelectionFactoryGPXFile>());
    m_factories.push_back(std::make_unique<KRTrackSelectionFactoryKmlFile>());
}

KRTrackSelectionFactory::~KRTrackSelectionFactory() = default;

void KRTrackSelectionFactory::addFactory(KRTrackSelectionFactoryAbstract *factory)
{
    m_factories.emplace_back(factory);
}

bool KRTrackSelectionFactory::supportsFile(const QUrl &url) const
{
    return factoryFor(url) != nullptr;
}

QStringList KRTrackSelectionFactory::supportedFileFormats() const
{
    QStringList formats;
    for (const auto &factory : m_factories)
        formats.append(factory->supportedFileFormats());
    return formats;
}

KRGPXConfiguredTrackList KRTrackSelectionFactory::createConfiguredTrackList(const QUrl &url) const
{
    const KRTrackSelectionFactoryAbstract *const factory = factoryFor(url);
    if (!factory)
        return {};
    const QString formats = factory->supportedFileFormats().join(QLatin1Char(','));
    KRLogger::instance()->logOSM(QStringLiteral("ACTION:useFactory VALUE:%1").arg(formats));
    return factory->createConfiguredTrackList(url);
}

KRGPXConfiguredTrackList KRTrackSelectionFactory::createConfiguredTrackList(const QList<QUrl> &urls) const
{
    KRGPXConfiguredTrackList tracks;
    for (const QUrl &url : urls) {
        const KRGPXConfiguredTrackList tracksOfFile = createConfiguredTrackList(url);
        if (tracksOfFile.isValid())
            tracks.append(tracksOfFile);
    }
    return tracks;
}

KRGPXConfiguredTrackList KRTrackSelectionFactory::askUserReadFile()
{
    const QString filter = supportedFileFormats().join(QLatin1Char(' '));
    const QString fileName = KRRequestDiskAccess::instance()->getOpenFileName(
        ReadDiskAccess, QObject::tr("Datei für Route öffnen"), QString(), filter);
    if (fileName.isEmpty())
        return {};
    return createConfiguredTrackList(QUrl::fromLocalFile(fileName));
}

const KRTrackSelectionFactoryAbstract *KRTrackSelectionFactory::factoryFor(const QUrl &url) const
{
    for (const auto &factory : m_factories) {
        if (factory->supportsFile(url))
            return factory.get();
    }
    return nullptr;
}
