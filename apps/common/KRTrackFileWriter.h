#pragma once

#include "KRTrackFileStamps.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QString>

class KRErrorHistory;

/**
 * Gives tracks files in the folder of a route document. Those that have one which still holds them keep it.
 *
 * Each new file is read again, as a track may be more than what is read. The new files, and then the folder if it is
 * new, are removed in the end unless keepFiles() is called, for without a document that names them they are of no use;
 * until then nobody else names them.
 */
class KRTrackFileWriter
{
    Q_DECLARE_TR_FUNCTIONS(KRTrackFileWriter)

public:
    explicit KRTrackFileWriter(const QDir &folder) : m_folder(folder) { }
    ~KRTrackFileWriter();

    /// Where there is none yet. False when that fails, which is not reported.
    bool makeFolder();

    /// Also true for a track without a segment that stands for a file which could not be read.
    bool hasFile(const KRGPXTrack &track) const;
    /// The name of the file of the track, without the folder. It is written where there is none yet; empty when that
    /// fails.
    QString write(const KRGPXTrack &track, KRErrorHistory *history);

    void keepFiles();

private:
    Q_DISABLE_COPY(KRTrackFileWriter)

    struct NewFile {
        KRTrackFileStamps::Stamp stamp;
        KRGPXTrack track;
    };
    QString writeNewFile(const KRGPXTrack &track, KRErrorHistory *history) const;
    bool isReadable(const QString &fileName, const KRGPXTrack &track, KRErrorHistory *history) const;

    QDir m_folder;
    bool m_isFolderNew = false;
    QHash<QString, NewFile> m_newFiles; // by name
};
