#pragma once

#include <QCoreApplication>

class KRErrorHistory;
class KRGPXTrack;
class QString;

/**
 * How much of the data of tracks a file for other programs does not hold; each thing is counted once.
 *
 * Looks and the descriptions of positions do not count: what becomes of them is a matter of the format.
 */
struct KRExchangeLosses {
    Q_DECLARE_TR_FUNCTIONS(KRExchangeLosses)

public:
    /// Positions of a track, without its enclaves.
    struct Positions {
        int exchangeable = 0;
        int timed = 0; ///< exchangeable ones with a time
        int untellable = 0; ///< exchangeable ones with a time that has no text
        int unusable = 0; ///< no position, or not on the globe
    };
    static Positions count(const KRGPXTrack &track);
    /// Of any depth.
    static int countEnclaves(const KRGPXTrack &track);

    void report(const QString &name, KRErrorHistory *history) const;

    int tracks = 0; ///< without a position in the file
    int unusablePositions = 0;
    int positionsBesidePoints = 0; ///< of tracks that the file shows as one point
    int enclaves = 0; ///< with all that is in them
    int times = 0; ///< of positions that are in the file
};
