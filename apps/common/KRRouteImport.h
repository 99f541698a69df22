#pragma once

#include "KRImportReport.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QCoreApplication>
#include <QStringList>

#include <functional>

class KRFileImport;
class KRReadAhead;
class QFileInfo;

/**
 * Reads route files through the library's importers, and route documents, and says of each file that gives nothing
 * why it does.
 *
 * GPX, KML and KMZ files are prepared for the importers, which pass over much of what real files hold. All of a file
 * becomes tracks, or it stands in the file's report.
 *
 * GUI thread only, like the importers. Files that are prepared are read by other threads, several at once.
 */
class KRRouteImport
{
    Q_DECLARE_TR_FUNCTIONS(KRRouteImport)

public:
    /// Called before the turn of each file, with its path, its number from 1 and the count of files.
    using ProgressFunction = std::function<void(const QString &fileName, int number, int count)>;
    /// Called before the turn of each file, before each track of a document, and again and again while other threads
    /// read. May keep the user interface alive, but must not read with the same import; false ends reading.
    using WaitFunction = std::function<bool()>;

    void setProgressFunction(const ProgressFunction &function) { m_progress = function; }
    void setWaitFunction(const WaitFunction &function) { m_wait = function; }

    /// Whether files go to the importers as they are; by default they do not. What that leaves out is not reported.
    void setPlain(bool isPlain) { m_isPlain = isPlain; }
    /// Whether each segment becomes a track of its own; by default it does not.
    void setSplitSegments(bool splitsSegments) { m_splitsSegments = splitsSegments; }

    /// Reads the files and appends, in their order, to what was read before. False when the wait function has ended it;
    /// the files before the one whose turn it was are there then.
    bool read(const QStringList &fileNames);

    const KRGPXConfiguredTrackList &tracks() const { return m_tracks; }
    /// That of the last document read, 255 when there was none.
    int croppingOpacity() const { return m_croppingOpacity; }
    /// One entry or more for each file that gave nothing.
    const KRErrorHistory &problems() const { return m_problems; }
    /// One for each file of which something could not be drawn, in the order of the files.
    const QList<KRImportReport> &reports() const { return m_reports; }

private:
    bool isReadAhead(const QString &fileName) const;
    bool waitFor(KRReadAhead *files) const;
    bool readFile(const QString &fileName, KRReadAhead *files);
    bool readDocument(const QString &fileName);
    KRGPXConfiguredTrackList take(KRFileImport *import);
    KRGPXConfiguredTrackList readPlainly(const QFileInfo &file);
    /// Unless they are to be split and would become too many.
    void addTracks(const KRGPXConfiguredTrackList &tracks, const QString &fileName);
    void addReport(const KRImportReport &report);
    void explain(const QString &fileName, bool isSupported);

    KRGPXConfiguredTrackList m_tracks;
    int m_croppingOpacity = 255;
    bool m_isPlain = false;
    bool m_splitsSegments = false;
    KRErrorHistory m_problems;
    QList<KRImportReport> m_reports;
    ProgressFunction m_progress;
    WaitFunction m_wait;
};
