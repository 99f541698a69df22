#include "KRGPXTrackFile.h"

#include "KRGPXVocabulary.h"

#include <KRCore/KRXMLLoader.h>

#include <QDir>
#include <QDomElement>
#include <QFileInfo>

KRGPXTrackFile::KRGPXTrackFile(const QFileInfo &file, KRErrorHistory *history)
{
    const QDomElement root = KRXMLLoader::loadDocumentElement(file, history);
    // Counts the invalid tracks too, so that names do not depend on what else is in the file.
    int number = 0;
    for (QDomElement trk = root.firstChildElement(KRGPXVocabulary::trackElement); !trk.isNull();
         trk = trk.nextSiblingElement(KRGPXVocabulary::trackElement)) {
        ++number;
        KRGPXTrack track(trk, QDir(QString()));
        if (!track.isValid())
            continue;
        if (track.name().isEmpty())
            track.setName(QStringLiteral("%1 %2").arg(file.baseName(), QString::number(number)));
        m_tracks.append(track);
    }
}
