#pragma once

#include "KRGpxImport.h"

#include <QStringList>

#include <atomic>
#include <cstddef>
#include <future>
#include <memory>
#include <vector>

class QThread;

/**
 * Reads GPX files in the background, as many at once as there are cores, and hands them out in their order.
 *
 * The threads are its own: those that readers wait for elsewhere stay free. Where the system starts none, the files
 * are read when they are asked for. For use from one thread.
 */
class KRGpxReadAhead
{
public:
    explicit KRGpxReadAhead(const QStringList &fileNames);
    /// Waits for the files that are being read. Those that are not begun with are not read any more.
    ~KRGpxReadAhead();

    /// Whether the next file is read, waiting for it at most that long.
    bool isNextRead(int milliseconds);
    /// Waits for the next file as long as it takes; there must be one.
    KRGpxImport takeNext();

    /// Begins with no further file. The files that are not yet read must not be taken any more.
    void stop() { m_isStopped = true; }
    /// Whether no file is being read, waiting for that at most that long.
    bool isIdle(int milliseconds);

private:
    Q_DISABLE_COPY(KRGpxReadAhead)

    void startThreads();
    /// False when there is none left to begin with.
    bool readFile();
    void readWithoutThreads();

    std::vector<std::packaged_task<KRGpxImport()>> m_tasks;
    std::vector<std::future<KRGpxImport>> m_imports;
    std::atomic<std::size_t> m_nextToRead{0};
    std::size_t m_nextToTake = 0;
    std::atomic<bool> m_isStopped{false};
    std::vector<std::unique_ptr<QThread>> m_threads;
};
