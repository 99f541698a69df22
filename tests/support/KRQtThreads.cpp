#include <QDeadlineTimer>
#include <QMutex>
#include <QRunnable>
#include <QThreadPool>
#include <QWaitCondition>

#include <dlfcn.h>

/*
 * ThreadSanitizer cannot look into Qt's libraries. These functions take the place of theirs in the whole program, call
 * them, and say what they do.
 */

extern "C" void __tsan_acquire(void *address);
extern "C" void __tsan_release(void *address);

namespace {

template <typename Function>
Function functionOfQt(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

/// What the starter of a runnable has done is done before it runs.
class KnownRunnable : public QRunnable
{
public:
    explicit KnownRunnable(QRunnable *runnable) : m_runnable(runnable), m_isOwned(runnable->autoDelete())
    {
        __tsan_release(this);
    }
    void run() override
    {
        __tsan_acquire(this);
        m_runnable->run();
        if (m_isOwned)
            delete m_runnable;
    }

private:
    QRunnable *m_runnable;
    const bool m_isOwned;
};

} // namespace

void QMutex::lock() noexcept
{
    static const auto original = functionOfQt<void (*)(QMutex *)>("_ZN6QMutex4lockEv");
    original(this);
    __tsan_acquire(this);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static const auto original = functionOfQt<bool (*)(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const bool isLocked = original(this, timeout);
    if (isLocked)
        __tsan_acquire(this);
    return isLocked;
}

void QMutex::unlock() noexcept
{
    static const auto original = functionOfQt<void (*)(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    original(this);
}

bool QWaitCondition::wait(QMutex *mutex, QDeadlineTimer deadline)
{
    static const auto original = functionOfQt<bool (*)(QWaitCondition *, QMutex *, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    __tsan_release(mutex);
    const bool isWoken = original(this, mutex, deadline);
    __tsan_acquire(mutex);
    return isWoken;
}

void QThreadPool::start(QRunnable *runnable, int priority)
{
    static const auto original =
        functionOfQt<void (*)(QThreadPool *, QRunnable *, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    original(this, new KnownRunnable(runnable), priority);
}

bool QThreadPool::tryStart(QRunnable *runnable)
{
    static const auto original =
        functionOfQt<bool (*)(QThreadPool *, QRunnable *)>("_ZN11QThreadPool8tryStartEP9QRunnable");
    auto *const known = new KnownRunnable(runnable);
    const bool isStarted = original(this, known);
    if (!isStarted)
        delete known;
    return isStarted;
}
