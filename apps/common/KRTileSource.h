#pragma once

#include "KRTileKey.h"

#include <KRCore/KRIntRange.h>

#include <QByteArray>
#include <QObject>
#include <QUrl>

#include <memory>

class KRErrorHistory;

/// What a source has to say about one tile.
struct KRTileAnswer {
    enum Kind {
        Found, ///< bytes of a picture, not looked at yet
        Absent, ///< the source has no such tile and never will
        Failed, ///< there is or may be one, and asking again is in vain
        Later, ///< the same, but it may be there when asked again
        Overloaded, ///< like Later, and nothing else should be asked meanwhile
    };

    Kind kind = Absent;
    QByteArray bytes;
    QString reason; ///< for users, where it failed
    bool isKept = false; ///< the bytes do not come from the source itself, but were kept on the disk
    QUrl address{}; ///< where it came from in the end, of sources that may send on to another place
    int waitMs = 0; ///< how long the source itself asks to be left alone, 0 where it does not say
};

/**
 * Where the tiles of a map come from: a file, a folder or the net.
 *
 * A source belongs to the thread in which it was opened; several threads open one each. Pictures are handed on as
 * they are, up to KRInputLimits::tileBytes.
 */
class KRTileSource : public QObject
{
    Q_OBJECT

public:
    /**
     * Opens what @p text names:
     * - an MBTiles file
     * - a folder with tiles in <level>/<column>/<row>.png, .jpg, .jpeg or .webp
     * - a path with {z}, {x} and {y}, for other folders; {-y} counts rows from the south
     * - an address of the same kind that begins with http:// or https://
     *
     * Null when that is not possible; the reason goes to the history. Takes no longer than it takes to open a file.
     */
    static std::unique_ptr<KRTileSource> open(const QString &text, KRErrorHistory *history);
    /// The name of the file or folder, or the template of names, that open() takes @p text for; empty for an address.
    static QString localName(const QString &text);
    /// Whether what has that name, rather than one file, holds the tiles.
    static bool isFolderOrTemplate(const QString &name);

    /// What the source says of its makers, one line of plain text, may be empty.
    virtual QString credit() const { return QString(); }

    /// The levels that it has, never empty. May take its time.
    virtual KRIntRange zoomRange() = 0;

    /// How many tiles may be asked for at a time.
    virtual int maximumRequests() const { return 1; }

    /// Is answered by answered(), perhaps before this returns.
    virtual void request(const KRTileKey &key) = 0;
    /// The answer is no longer wanted and does not come.
    virtual void cancel(const KRTileKey &key);
    /// What was kept on the disk and given as @p answer is damaged. It does not come again, and the next request for
    /// the tile goes past all that is kept.
    virtual void forget(const KRTileKey &key, const KRTileAnswer &answer);

signals:
    void answered(const KRTileKey &key, const KRTileAnswer &answer);
};
