#include "KRGpxReadAhead.h"

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

// What the main thread commonly has: the reader goes down with the elements of a file.
constexpr uint stackBytes = 8 << 20;

KRGpxImport importOf(const QString &fileName)
{
    // Made here, since copies of a QFileInfo share what it finds out.
    KRGpxImport import{QFileInfo(fileName)};
    import.read();
    return import;
}

} // namespace

KRGpxReadAhead::KRGpxReadAhead(const QStringList &fileNames)
{
    for (const QString &fileName : fileNames) {
        m_tasks.emplace_back([fileName] { return importOf(fileName); });
        m_imports.push_back(m_tasks.back().get_future());
    }
    startThreads();
}

KRGpxReadAhead::~KRGpxReadAhead()
{
    stop();
    for (const std::unique_ptr<QThread> &thread : m_threads)
        thread->wait();
}

void KRGpxReadAhead::startThreads()
{
    const std::size_t count = std::min(m_tasks.size(), std::size_t(QThread::idealThreadCount()));
    while (m_threads.size() < count) {
        std::unique_ptr<QThread> thread(QThread::create([this] {
            while (readFile()) { }
        }));
        thread->setStackSize(stackBytes);
        thread->start();
        if (!thread->isRunning() && !thread->isFinished())
            return;
        m_threads.push_back(std::move(thread));
    }
}

bool KRGpxReadAhead::readFile()
{
    if (m_isStopped)
        return false;
    const std::size_t number = m_nextToRead++;
    if (number >= m_tasks.size())
        return false;
    m_tasks[number]();
    return true;
}

void KRGpxReadAhead::readWithoutThreads()
{
    while (m_threads.empty() && m_nextToRead <= m_nextToTake && readFile()) { }
}

bool KRGpxReadAhead::isNextRead(int milliseconds)
{
    readWithoutThreads();
    return m_imports[m_nextToTake].wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
}

KRGpxImport KRGpxReadAhead::takeNext()
{
    readWithoutThreads();
    return m_imports[m_nextToTake++].get();
}

bool KRGpxReadAhead::isIdle(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    return std::all_of(m_threads.cbegin(), m_threads.cend(),
                       [&deadline](const std::unique_ptr<QThread> &thread) { return thread->wait(deadline); });
}
