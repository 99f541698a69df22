#include "KRReadAhead.h"

#include <KRCore/KRConcurrent.h>

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

// What the main thread commonly has: the reader goes down with the elements of a file.
constexpr uint stackBytes = 8 << 20;

} // namespace

KRReadAhead::KRReadAhead(const QStringList &fileNames)
    : m_mostAhead(2 * QThread::idealThreadCount()), m_room(m_mostAhead)
{
    for (const QString &fileName : fileNames) {
        m_imports.push_back(KRFileImport::create(QFileInfo(fileName)));
        m_tasks.emplace_back([import = m_imports.back().get()] { import->read(); });
        m_ends.push_back(m_tasks.back().get_future());
    }
    startThreads();
}

KRReadAhead::~KRReadAhead()
{
    stop();
    for (const std::unique_ptr<QThread> &thread : m_threads)
        thread->wait();
}

void KRReadAhead::stop()
{
    m_isStopped = true;
    m_room.release(m_mostAhead); // for threads that wait
}

void KRReadAhead::startThreads()
{
    const std::size_t count = std::min(m_tasks.size(), std::size_t(QThread::idealThreadCount()));
    while (m_threads.size() < count) {
        std::unique_ptr<QThread> thread(QThread::create([this] {
            while (readFile()) { }
        }));
        thread->setStackSize(stackBytes);
        if (!KRConcurrent::start(thread.get()))
            return;
        m_threads.push_back(std::move(thread));
    }
}

bool KRReadAhead::readFile()
{
    m_room.acquire();
    if (m_isStopped)
        return false;
    const std::size_t number = m_nextToRead++;
    if (number >= m_tasks.size())
        return false;
    m_tasks[number]();
    return true;
}

void KRReadAhead::readWithoutThreads()
{
    while (m_threads.empty() && m_nextToRead <= m_nextToTake && readFile()) { }
}

bool KRReadAhead::isNextRead(int milliseconds)
{
    readWithoutThreads();
    return m_ends[m_nextToTake].wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
}

std::unique_ptr<KRFileImport> KRReadAhead::takeNext()
{
    readWithoutThreads();
    m_ends[m_nextToTake].get();
    m_room.release();
    return std::move(m_imports[m_nextToTake++]);
}

bool KRReadAhead::isIdle(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    return std::all_of(m_threads.cbegin(), m_threads.cend(),
                       [&deadline](const std::unique_ptr<QThread> &thread) { return thread->wait(deadline); });
}
