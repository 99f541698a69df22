#pragma once

#include <KRGeoLocation/KRGPXTrack.h>

#include <QList>
#include <QString>

class KRGPXConfiguredTrackList;
class KRGPXTrackConfiguration;

/// What holds for tracks wherever they come from. Answers are as those of KRFuzzTargets.
class KRFuzzLaws
{
public:
    static int countPoints(const QList<KRGPXTrack> &tracks);

    /// A track that was written as XML and read again is written and read alike from then on.
    static QString brokenByXml(const KRGPXTrack &track);
    static QString brokenByXml(const KRGPXTrackConfiguration &configuration);
    /// The same for the files that other programs read; @p format as KRExchangeFile has it.
    static QString brokenByExchange(const KRGPXConfiguredTrackList &tracks, const QByteArray &format);
    /// No more points than bytes, so that memory and time are bounded by the size of the input.
    static QString brokenBySize(const QList<KRGPXTrack> &tracks, qint64 bytes);
    static QList<KRGPXTrack> tracksOf(const KRGPXConfiguredTrackList &tracks);
};
