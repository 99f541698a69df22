#pragma once

#include "KRGPXTrackFileNames.h"
#include "KRGPXTrackFileRegistryKey.h"

#include <KRCore/KRSingleton.h>

#include <QObject>
#include <QRecursiveMutex>
#include <QSet>

class KRErrorHistory;
class QFileInfo;

/**
 * Remembers for the whole process which track has been written to which file in which directory.
 *
 * A track that is saved again unchanged keeps its file, which is not written again; a changed track gets a new one.
 * Only forgetFile() forgets anything. May be called from several threads: two that save tracks never get the same new
 * name, nor do two processes that save into the same directory.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackFileRegistry : public QObject, public KRSingleton<KRGPXTrackFileRegistry>
{
    Q_OBJECT

public:
    KRGPXTrackFileRegistry() = default;
    ~KRGPXTrackFileRegistry() override = default;

    static KRGPXTrackFileRegistry &instance();

    QFileInfo createFileInfo(const KRGPXTrackFileRegistryKey &key, const QString &fileName) const;
    /// Without its directory; empty when the track has no file there.
    QString fileName(const KRGPXTrackFileRegistryKey &key) const;

    void registerFile(const KRGPXTrackFileRegistryKey &key, const QString &fileName);
    /// For a file that has been removed. Its name is not given to another track.
    void forgetFile(const KRGPXTrackFileRegistryKey &key, const QString &fileName);
    /// The file name of the track in the directory. Where there is none yet, a new file ("track.gps", "track_1.gps"
    /// and so on) is written first. Intended: its name is kept even if writing failed, which is only logged.
    QString createAssignedFile(const KRGPXTrackFileRegistryKey &key);
    /// Writes the track to a new file, whether or not it has one already, and assigns that. Its name is kept even if
    /// writing failed; then the answer is false.
    bool createNewFile(const KRGPXTrackFileRegistryKey &key, KRErrorHistory *history);
    /// Writes the track as the only one of a document with the root "includedTrack". A failure is only logged.
    void saveTrackInFile(const KRGPXTrackFileRegistryKey &key, const QFileInfo &file);

private:
    Q_DISABLE_COPY(KRGPXTrackFileRegistry)

    static bool writeTrack(const KRGPXTrack &track, const QFileInfo &file, KRErrorHistory *history);
    QFileInfo newFile(const KRGPXTrackFileRegistryKey &key);

    KRGPXTrackFileNames m_files;
    QSet<QString> m_fileNames; // all that m_files holds, with their real paths
    QSet<QDir> m_dirs;
    mutable QRecursiveMutex m_mutex;
};
