#pragma once

#include "KRCoreExport.h"
#include "KRSingleton.h"

#include <QHash>
#include <QMutex>
#include <QSet>
#include <QString>

class QDir;
class QFileInfo;

/**
 * Finds file names that nobody uses yet: "track.gps", then "track_1.gps", "track_2.gps" and so on.
 *
 * A name is given out once per directory and process, also when no file came of it. May be called from
 * several threads.
 */
class KRCORE_EXPORT KRUniqueFilenameMaker : public KRSingleton<KRUniqueFilenameMaker>
{
public:
    /**
     * A free name in the directory of @p proposal, derived from its name. The file is not created.
     * @param dirs the directories that the caller writes to. On platforms that shut programs into containers
     *        access to them has to be asked for; here it is always granted.
     */
    QFileInfo makeUniqueFileNameInSafeContainer(const QFileInfo &proposal, const QSet<QDir> &dirs);

private:
    QMutex m_mutex;
    QHash<QString, int> m_nextNumbers; // by directory and proposed name; 0 stands for the proposal itself
};
