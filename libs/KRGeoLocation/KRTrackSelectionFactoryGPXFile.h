#pragma once

#include "KRTrackSelectionFactoryAbstract.h"

class QFileInfo;

/// Reads GPX files: every track of the file, in its order, drawn as the user wants new tracks.
class KRGEOLOCATION_EXPORT KRTrackSelectionFactoryGPXFile : public KRTrackSelectionFactoryAbstract
{
public:
    bool supportsFile(const QUrl &url) const override;
    QStringList supportedFileFormats() const override;
    KRGPXConfiguredTrackList createConfiguredTrackList(const QUrl &url) const override;

    /// Any file with the suffix "gpx", in whatever case.
    virtual bool supportsFile(const QFileInfo &file) const;
    /// Does not look at the suffix.
    virtual KRGPXConfiguredTrackList createConfiguredTrackList(const QFileInfo &file) const;
};
