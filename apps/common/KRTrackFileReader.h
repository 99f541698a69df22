#pragma once

#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXTrack.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QSet>
#include <QString>

class KRErrorHistory;
class QDomElement;
class QFileInfo;

/**
 * Reads the tracks of a route document, each file once: tracks that are the same share their points.
 *
 * A document of unknown origin may name a file again in ways that do not come from saving it, with other descriptions
 * for example. Each takes another reading, of which there may be too many.
 */
class KRTrackFileReader
{
    Q_DECLARE_TR_FUNCTIONS(KRTrackFileReader)

public:
    /// Names a file within the element "trk".
    inline static const QLatin1String includeElement{"include"};

    explicit KRTrackFileReader(const QDir &folder) : m_folder(folder) { }

    /// The same as read() will get. False when all of them together go beyond KRInputLimits::repeatedBytes.
    bool announce(const QDomElement &trk, const QDomElement &kept);

    /// The track of the element "trk", with what KRTrackKeeper has @p kept of it. One that cannot be read is not valid
    /// and is known to KRLostTrackTexts, under the name of its file.
    /// @param withoutFile what the element itself holds of the track: all of it, unless it names a file
    KRGPXTrack read(const QDomElement &trk, const KRGPXTrack &withoutFile, const QDomElement &kept,
                    KRErrorHistory *history);
    /// Whether tracks that are the same go beyond KRInputLimits::repeatedPoints: shared they may be, but each is drawn.
    bool hasRepeatedTooMuch() const { return m_repeatedPoints > KRInputLimits::repeatedPoints; }

private:
    bool namesFile(const QDomElement &trk) const;
    KRGPXTrack readFile(const QDomElement &trk, const QString &fileName, const QDomElement &kept,
                        KRErrorHistory *history) const;
    static bool holdsTrack(const QFileInfo &file, const QDomElement &kept, KRErrorHistory *history);

    QDir m_folder;
    QSet<QByteArray> m_announced; // digests
    QHash<QByteArray, KRGPXTrack> m_tracks; // by a digest of their elements
    QSet<QString> m_paths; // of all files that are announced
    qint64 m_repeatedBytes = 0;
    qint64 m_repeatedPoints = 0;
};
