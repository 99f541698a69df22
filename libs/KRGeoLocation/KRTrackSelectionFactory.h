#pragma once

#include "KRTrackSelectionFactoryAbstract.h"

#include <KRCore/KRSingleton.h>

#include <memory>
#include <vector>

/**
 * The one way from files to configured tracks: asks its importers in turn which of them supports a file.
 *
 * The GPX importer is asked first, importers that hosts add are asked last. Each file that an importer is found for
 * leaves a line in the log of actions, even when it cannot be read then. GUI thread only.
 */
class KRGEOLOCATION_EXPORT KRTrackSelectionFactory : public KRTrackSelectionFactoryAbstract,
                                                     public KRSingleton<KRTrackSelectionFactory>
{
public:
    KRTrackSelectionFactory();
    ~KRTrackSelectionFactory() override;

    /// Takes ownership of @p factory, which is never null.
    void addFactory(KRTrackSelectionFactoryAbstract *factory);

    bool supportsFile(const QUrl &url) const override;
    /// Of all importers, in the order in which they are asked.
    QStringList supportedFileFormats() const override;
    KRGPXConfiguredTrackList createConfiguredTrackList(const QUrl &url) const override;
    /// The tracks of all these files; those that give none are skipped.
    virtual KRGPXConfiguredTrackList createConfiguredTrackList(const QList<QUrl> &urls) const;

    /// Asks the user for one file. Empty also when the user cancels.
    KRGPXConfiguredTrackList askUserReadFile();

private:
    const KRTrackSelectionFactoryAbstract *factoryFor(const QUrl &url) const;

    std::vector<std::unique_ptr<KRTrackSelectionFactoryAbstract>> m_factories;
};
