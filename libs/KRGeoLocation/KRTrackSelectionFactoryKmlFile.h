#pragma once

#include "KRTrackSelectionFactoryAbstract.h"

#include <QCoreApplication>
#include <QDomElement>

class KRErrorHistory;
class QFileInfo;

/**
 * Reads KML documents and KMZ archives with such a document: every "Placemark" becomes a track, in the order of the
 * document, also one without coordinates.
 *
 * Placemarks count anywhere below the first child "Document" of the document element, to whatever depth folders are
 * nested, but not inside of other placemarks. They are drawn by the style of the document that their "styleUrl" names,
 * else by the built-in default. Names are compared as they are written: elements with a prefix ("kml:Placemark") are
 * not recognised.
 *
 * Files and documents that give no track report their reason to the history where one is handed in.
 */
class KRGEOLOCATION_EXPORT KRTrackSelectionFactoryKmlFile : public KRTrackSelectionFactoryAbstract
{
    Q_DECLARE_TR_FUNCTIONS(KRTrackSelectionFactoryKmlFile)

public:
    bool supportsFile(const QUrl &url) const override;
    QStringList supportedFileFormats() const override;
    KRGPXConfiguredTrackList createConfiguredTrackList(const QUrl &url) const override;

    /// Any file with the suffix "kml" or "kmz", in whatever case.
    virtual bool supportsFile(const QFileInfo &file) const;
    virtual KRGPXConfiguredTrackList createConfiguredTrackList(const QFileInfo &file) const;

    /// The text of a "kml" file, or of the first entry of a "kmz" archive whose name ends with ".kml". Both are read as
    /// UTF-8, whatever encoding the text declares, but a file with a byte order mark of UTF-16 as that. Empty when
    /// there is none.
    QString readFile(const QFileInfo &file, KRErrorHistory *history = nullptr) const;
    /// @p fileName stands in for missing names and descriptions. An empty @p content is not reported again.
    KRGPXConfiguredTrackList decode(const QString &content, const QString &fileName,
                                    KRErrorHistory *history = nullptr) const;

    /// The text of the first "coordinates" below @p element, or of itself, that is not blank; without blanks around it.
    /// Intended: of an area with holes and of several geometries only the first outline.
    QString findCoordinates(const QDomElement &element) const;
    /// All placemarks below @p element, or itself if it is one.
    QList<QDomElement> findPlacemarks(const QDomElement &element) const;
};
