#pragma once

#include <KRCore/KRSingleton.h>

#include <QDomDocument>
#include <QHash>
#include <QMutex>
#include <QPair>
#include <QString>

class KRGPXTrack;
class QDomElement;
class QFileInfo;

/**
 * Knows for the whole process what route documents keep of tracks whose files could not be read.
 *
 * Such a track has no points to which the descriptions would belong. Once its file is back it gets them again, from a
 * document that has been saved meanwhile. Nothing is forgotten. May be called from several threads.
 */
class KRLostTrackTexts : public KRSingleton<KRLostTrackTexts>
{
public:
    /// @p kept is what KRTrackKeeper has written of the track in @p file; it may be null. Documents that keep different
    /// descriptions of the track keep different texts.
    void remember(const QFileInfo &file, const KRGPXTrack &track, const QDomElement &kept);
    /// Appends what was remembered of the track in @p file; says whether there was anything.
    bool keep(const QFileInfo &file, const KRGPXTrack &track, QDomElement &element) const;

private:
    using Key = QPair<QString, QString>; // absolute path, description of the track

    static Key keyOf(const QFileInfo &file, const KRGPXTrack &track);

    QHash<Key, QDomDocument> m_texts;
    mutable QMutex m_mutex;
};
