#pragma once

#include "KRGPXConfiguredTrackList.h"
#include "KRGeoLocationExport.h"

#include <QStringList>

class QUrl;

/**
 * Makes configured tracks out of files of certain formats. GUI thread only.
 *
 * A file that is not supported, that cannot be read or that holds no track gives an empty list.
 */
class KRGEOLOCATION_EXPORT KRTrackSelectionFactoryAbstract
{
public:
    virtual ~KRTrackSelectionFactoryAbstract() = default;

    /// Judged by the name alone; the file need not exist.
    virtual bool supportsFile(const QUrl &url) const = 0;
    /// Patterns for the names of such files, such as "*.gpx".
    virtual QStringList supportedFileFormats() const = 0;
    virtual KRGPXConfiguredTrackList createConfiguredTrackList(const QUrl &url) const = 0;

protected:
    KRTrackSelectionFactoryAbstract() = default;

private:
    Q_DISABLE_COPY(KRTrackSelectionFactoryAbstract)
};
