#pragma once

#include <KRCore/KRSingleton.h>

#include <QDomDocument>
#include <QHash>
#include <QMutex>
#include <QPair>
#include <QString>

class KRGPXTrack;
class QDir;
class QDomElement;
class QFileInfo;

/**
 * Knows for the whole process what route documents keep of tracks whose files could not be read.
 *
 * Such a track has no points to which the descriptions would belong. Once its file is back it gets them again, from a
 * document that has been saved meanwhile, to whatever folder. Nothing is forgotten. May be called from several threads.
 */
class KRLostTrackTexts : public KRSingleton<KRLostTrackTexts>
{
public:
    /// @p kept is what KRTrackKeeper has written of the track in @p file; it may be null. Documents that keep different
    /// descriptions of the track keep different texts.
    void remember(const QFileInfo &file, const KRGPXTrack &track, const QDomElement &kept);
    /// The same of the file alone, which could not be read. False, with nothing remembered, when a track with this name
    /// and description was lost with another file: the two could not be told apart.
    bool rememberFile(const QFileInfo &file, const KRGPXTrack &track);
    /// The absolute path that the track of a document with that folder should have come from; empty unless it is lost.
    QString fileOf(const KRGPXTrack &track, const QDir &folder) const;
    /// Appends what was remembered of the track in @p file; says whether there was anything.
    bool keep(const QString &file, const KRGPXTrack &track, QDomElement &element) const;

private:
    using Key = QPair<QString, QString>; // absolute path, description of the track
    using Texts = QPair<QString, QString>; // name, description of the track

    QHash<Key, QDomDocument> m_texts;
    QHash<Texts, QString> m_paths;
    mutable QMutex m_mutex;
};
