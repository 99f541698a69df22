#pragma once

#include <KRCore/KRSingleton.h>

#include <QByteArray>
#include <QDomDocument>
#include <QHash>
#include <QMutex>
#include <QPair>
#include <QString>

class KRGPXTrack;
class QDomElement;
class QFileInfo;

/**
 * Knows for the whole process which tracks stand for files that could not be read, and what route documents keep of
 * them.
 *
 * Such a track has no points to which the descriptions would belong. Once its file is back it gets them again, from a
 * document that has been saved meanwhile, to whatever folder. All that tells it from others is its name and its
 * description. Nothing is forgotten. May be called from several threads.
 */
class KRLostTrackTexts : public KRSingleton<KRLostTrackTexts>
{
public:
    /// The name that the track of @p file has to have from now on: @p proposal, unless that already stands for another
    /// file or other texts. @p kept is what KRTrackKeeper has written of the track; it may be null.
    QString remember(const QFileInfo &file, const QString &proposal, const QString &description,
                     const QDomElement &kept);
    /// The absolute path that the track should have come from; empty unless it is lost.
    QString fileOf(const KRGPXTrack &track) const;
    /// Appends what was remembered of the track; says whether there was anything.
    bool keep(const KRGPXTrack &track, QDomElement &element) const;

private:
    struct LostTrack {
        QString path; ///< absolute
        QDomDocument texts;
    };
    using Key = QPair<QString, QString>; // name, description

    LostTrack find(const KRGPXTrack &track) const;
    QString freeName(const QString &proposal, const QString &path, const QString &description);

    QHash<Key, LostTrack> m_tracks;
    QHash<QByteArray, QString> m_names; // by a digest of path, description and texts
    QHash<Key, int> m_counts; // of those that share a proposal and a description
    mutable QMutex m_mutex;
};
