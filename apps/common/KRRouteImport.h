#pragma once

#include "KRImportReport.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QCoreApplication>
#include <QStringList>

#include <functional>

class QFileInfo;

/**
 * Reads route files through the library's importers, and route documents, and says of each file that gives nothing
 * why it does.
 *
 * GPX, KML and KMZ files are prepared for the importers, which pass over much of what real files hold. All of a file
 * becomes tracks, or it stands in the file's report.
 *
 * GUI thread only, like the importers.
 */
class KRRouteImport
{
    Q_DECLARE_TR_FUNCTIONS(KRRouteImport)

public:
    /// Called before each file is read, with its path, its number from 1 and the count of files.
    using ProgressFunction = std::function<void(const QString &fileName, int number, int count)>;

    void setProgressFunction(const ProgressFunction &function) { m_progress = function; }

    /// Whether files go to the importers as they are; by default they do not. What that leaves out is not reported.
    void setPlain(bool isPlain) { m_isPlain = isPlain; }
    /// Whether each segment becomes a track of its own; by default it does not.
    void setSplitSegments(bool splitsSegments) { m_splitsSegments = splitsSegments; }

    /// Reads the files in order and appends to what was read before.
    void read(const QStringList &fileNames);

    const KRGPXConfiguredTrackList &tracks() const { return m_tracks; }
    /// That of the last document read, 255 when there was none.
    int croppingOpacity() const { return m_croppingOpacity; }
    /// One entry or more for each file that gave nothing.
    const KRErrorHistory &problems() const { return m_problems; }
    /// One for each file of which something could not be drawn, in the order of the files.
    const QList<KRImportReport> &reports() const { return m_reports; }

private:
    void readFile(const QString &fileName);
    void readDocument(const QString &fileName);
    template <typename Import>
    KRGPXConfiguredTrackList readCompletely(Import &&import);
    KRGPXConfiguredTrackList readPlainly(const QFileInfo &file);
    void addTracks(const KRGPXConfiguredTrackList &tracks);
    void explain(const QString &fileName, bool isSupported);

    KRGPXConfiguredTrackList m_tracks;
    int m_croppingOpacity = 255;
    bool m_isPlain = false;
    bool m_splitsSegments = false;
    KRErrorHistory m_problems;
    QList<KRImportReport> m_reports;
    ProgressFunction m_progress;
};
