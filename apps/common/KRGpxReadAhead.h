#pragma once

#include "KRGpxImport.h"

#include <QStringList>
#include <QThreadPool>

#include <cstddef>
#include <future>
#include <vector>

/**
 * Reads GPX files in the background, as many at once as there are cores, and hands them out in their order.
 *
 * The threads are its own: those that readers wait for elsewhere stay free. For use from one thread.
 */
class KRGpxReadAhead
{
public:
    explicit KRGpxReadAhead(const QStringList &fileNames);
    /// Waits for the files that are being read. Those that are not begun with are not read any more.
    ~KRGpxReadAhead();

    /// Whether the next file is read, waiting for it at most that long.
    bool isNextRead(int milliseconds) const;
    /// Waits for the next file as long as it takes; there must be one.
    KRGpxImport takeNext();

    /// Begins with no further file. The files that are not yet read must not be taken any more.
    void stop() { m_pool.clear(); }
    /// Whether no file is being read, waiting for that at most that long.
    bool isIdle(int milliseconds) { return m_pool.waitForDone(milliseconds); }

private:
    Q_DISABLE_COPY(KRGpxReadAhead)

    std::vector<std::future<KRGpxImport>> m_imports;
    std::size_t m_next = 0;
    QThreadPool m_pool;
};
