#include "KRGpxReadAhead.h"

#include <QThread>

#include <chrono>
#include <memory>

namespace {

// What the main thread commonly has: the reader goes down with the elements of a file.
constexpr uint stackBytes = 8 << 20;

KRGpxImport readFile(const QString &fileName)
{
    // Made here, since copies of a QFileInfo share what it finds out.
    KRGpxImport import{QFileInfo(fileName)};
    import.read();
    return import;
}

} // namespace

KRGpxReadAhead::KRGpxReadAhead(const QStringList &fileNames)
{
    m_pool.setMaxThreadCount(QThread::idealThreadCount());
    m_pool.setStackSize(stackBytes);
    m_imports.reserve(std::size_t(fileNames.size()));
    for (const QString &fileName : fileNames) {
        const auto task =
            std::make_shared<std::packaged_task<KRGpxImport()>>([fileName] { return readFile(fileName); });
        m_imports.push_back(task->get_future());
        m_pool.start([task] { (*task)(); });
    }
}

KRGpxReadAhead::~KRGpxReadAhead()
{
    stop();
    m_pool.waitForDone();
}

bool KRGpxReadAhead::isNextRead(int milliseconds) const
{
    return m_imports[m_next].wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
}

KRGpxImport KRGpxReadAhead::takeNext()
{
    return m_imports[m_next++].get();
}
