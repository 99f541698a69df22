#pragma once

#include <KRCore/KRSingleton.h>

#include <QDomDocument>
#include <QHash>
#include <QMutex>
#include <QString>

class QDomElement;
class QFileInfo;

/**
 * Knows for the whole process what route documents keep of tracks whose files could not be read.
 *
 * Such a track has no points to which the descriptions would belong. Once its file is back it gets them again, from a
 * document that has been saved meanwhile. May be called from several threads.
 */
class KRLostTrackTexts : public KRSingleton<KRLostTrackTexts>
{
public:
    /// @p kept is what KRTrackKeeper has written of the track in @p file; it may be null.
    void remember(const QFileInfo &file, const QDomElement &kept);
    /// Appends what was remembered of the track in @p file; says whether there was anything.
    bool keep(const QFileInfo &file, QDomElement &element) const;

private:
    QHash<QString, QDomDocument> m_texts; // by absolute path
    mutable QMutex m_mutex;
};
