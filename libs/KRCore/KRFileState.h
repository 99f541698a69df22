#pragma once

#include "KRCoreExport.h"

#include <QtGlobal>

#include <ctime>
#include <sys/types.h>
#include <tuple>

class QFileDevice;
class QFileInfo;
class QString;

/**
 * What tells a file from what it becomes, or from another one in its place.
 *
 * A change within some milliseconds of the one before may go unnoticed: the system counts no finer.
 */
class KRCORE_EXPORT KRFileState
{
public:
    explicit KRFileState(const QFileInfo &file);
    /// Of an open file, whatever has its name by now.
    explicit KRFileState(const QFileDevice &file);

    bool operator==(const KRFileState &other) const { return m_state == other.m_state; }
    bool operator!=(const KRFileState &other) const { return !(*this == other); }

    /// Tells the user that a file was changed while it was read.
    static QString textOfChange();

private:
    std::tuple<dev_t, ino_t, off_t, std::time_t, long> m_state;
};
