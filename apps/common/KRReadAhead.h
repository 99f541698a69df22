#pragma once

#include "KRFileImport.h"

#include <QSemaphore>
#include <QStringList>

#include <atomic>
#include <cstddef>
#include <future>
#include <memory>
#include <vector>

class QThread;

/**
 * Reads files in the background, as many at once as there are cores, and hands them out in their order.
 *
 * No more than twice as many are read ahead of those that have been taken: each is in memory until then.
 *
 * The threads are its own: those that readers wait for elsewhere stay free. Where the system starts none, the files
 * are read when they are asked for. For use from one thread.
 */
class KRReadAhead
{
public:
    /// There is a KRFileImport for each of the files.
    explicit KRReadAhead(const QStringList &fileNames);
    /// Waits for the files that are being read. Those that are not begun with are not read any more.
    ~KRReadAhead();

    /// Whether the next file is read, waiting for it at most that long.
    bool isNextRead(int milliseconds);
    /// Waits for the next file as long as it takes; there must be one.
    std::unique_ptr<KRFileImport> takeNext();

    /// Begins with no further file. The files that are not yet read must not be taken any more.
    void stop();
    /// Behind stop(): whether no file is being read any more, waiting for that at most that long.
    bool isIdle(int milliseconds);

private:
    Q_DISABLE_COPY(KRReadAhead)

    void startThreads();
    /// False when there is none left to begin with.
    bool readFile();
    void readWithoutThreads();

    const int m_mostAhead;
    QSemaphore m_room; // files that may be begun with
    std::vector<std::unique_ptr<KRFileImport>> m_imports;
    std::vector<std::packaged_task<void()>> m_tasks;
    std::vector<std::future<void>> m_ends;
    std::atomic<std::size_t> m_nextToRead{0};
    std::size_t m_nextToTake = 0;
    std::atomic<bool> m_isStopped{false};
    std::vector<std::unique_ptr<QThread>> m_threads;
};
