#pragma once

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QCoreApplication>
#include <QStringList>

#include <functional>

/**
 * Reads route files through the library's importers, and route documents, and says of each file that gives nothing
 * why it does.
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

    /// Reads the files in order and appends to what was read before.
    void read(const QStringList &fileNames);

    const KRGPXConfiguredTrackList &tracks() const { return m_tracks; }
    /// That of the last document read, 255 when there was none.
    int croppingOpacity() const { return m_croppingOpacity; }
    /// One entry or more for each file that gave nothing.
    const KRErrorHistory &problems() const { return m_problems; }

private:
    void readFile(const QString &fileName);
    void readDocument(const QString &fileName);
    void explain(const QString &fileName);
    void addProblem(const QString &fileName, const QString &reason);

    KRGPXConfiguredTrackList m_tracks;
    int m_croppingOpacity = 255;
    KRErrorHistory m_problems;
    ProgressFunction m_progress;
};
