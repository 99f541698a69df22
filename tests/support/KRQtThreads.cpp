#include <QDeadlineTimer>
#include <QFutureInterface>
#include <QMutex>
#include <QObject>
#include <QRunnable>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>
#include <QWaitCondition>

#include <dlfcn.h>
#include <pthread.h>

/*
 * ThreadSanitizer cannot look into Qt's libraries. These functions take the place of theirs in the whole program, call
 * them, and say what they do: what a thread has done before it releases something, another sees once it has acquired
 * the same.
 */

extern "C" void __tsan_acquire(void *address);
extern "C" void __tsan_release(void *address);
extern "C" void __tsan_ignore_thread_begin();
extern "C" void __tsan_ignore_thread_end();

namespace {

template <typename Function>
Function functionOfQt(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

void acquire(const volatile void *address)
{
    __tsan_acquire(const_cast<void *>(address));
}

void release(const volatile void *address)
{
    __tsan_release(const_cast<void *>(address));
}

/// Whether what this thread reads and writes is looked at, as long as it lives.
class Watch
{
public:
    explicit Watch(bool isOn) : m_wasOn(isWatched) { set(isOn); }
    ~Watch() { set(m_wasOn); }
    Q_DISABLE_COPY(Watch)

private:
    static void set(bool isOn)
    {
        if (isOn && !isWatched)
            __tsan_ignore_thread_end();
        else if (!isOn && isWatched)
            __tsan_ignore_thread_begin();
        isWatched = isOn;
    }

    static inline thread_local bool isWatched = true;

    const bool m_wasOn;
};

/// What the starter of a runnable has done is done before it runs, and that before anybody has waited for the pool.
class KnownRunnable : public QRunnable
{
public:
    KnownRunnable(QRunnable *runnable, QThreadPool *pool)
        : m_runnable(runnable), m_pool(pool), m_isOwned(runnable->autoDelete())
    {
        release(this);
    }
    void run() override
    {
        acquire(this);
        m_runnable->run();
        if (m_isOwned)
            delete m_runnable;
        release(m_pool);
    }

private:
    QRunnable *m_runnable;
    QThreadPool *m_pool;
    const bool m_isOwned;
};

/// What is called in another thread sees what was done before it was asked for.
class KnownSlot : public QtPrivate::QSlotObjectBase
{
public:
    /// Each signal of the sender releases it. The end is released after the call. Either may be null.
    KnownSlot(QSlotObjectBase *slot, const QObject *sender, const void *end)
        : QSlotObjectBase(&work), m_slot(slot), m_sender(sender), m_end(end)
    {
        release(this);
    }

private:
    static void work(int what, QSlotObjectBase *base, QObject *receiver, void **arguments, bool *isEqual)
    {
        acquire(base);
        auto *const self = static_cast<KnownSlot *>(base);
        if (what == Destroy) {
            self->m_slot->destroyIfLastRef();
            delete self;
        } else if (what == Compare) {
            *isEqual = self->m_slot->compare(arguments);
        } else {
            const Watch watch(true);
            const void *const end = self->m_end;
            if (self->m_sender != nullptr)
                acquire(self->m_sender);
            self->m_slot->call(receiver, arguments);
            if (end != nullptr)
                release(end);
        }
    }

    QSlotObjectBase *m_slot;
    const QObject *m_sender;
    const void *m_end;
};

/// What this thread is just calling once.
thread_local void (*onceFunction)() = nullptr;
thread_local pthread_once_t *onceControl = nullptr;

void callOnce()
{
    pthread_once_t *const control = onceControl;
    onceFunction();
    release(control);
}

} // namespace

/// ThreadSanitizer's own leaves aside all that is done in there, and so all of QThread::create() and
/// std::packaged_task.
extern "C" int pthread_once(pthread_once_t *control, void (*function)())
{
    static const auto original = reinterpret_cast<int (*)(pthread_once_t *, void (*)())>(
        ::dlsym(::dlopen("libc.so.6", RTLD_LAZY | RTLD_NOLOAD), "pthread_once"));
    onceFunction = function;
    onceControl = control;
    const int result = original(control, callOnce);
    acquire(control);
    return result;
}

void QMutex::lock() noexcept
{
    static const auto original = functionOfQt<void (*)(QMutex *)>("_ZN6QMutex4lockEv");
    original(this);
    acquire(this);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static const auto original = functionOfQt<bool (*)(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const bool isLocked = original(this, timeout);
    if (isLocked)
        acquire(this);
    return isLocked;
}

void QMutex::unlock() noexcept
{
    static const auto original = functionOfQt<void (*)(QMutex *)>("_ZN6QMutex6unlockEv");
    release(this);
    original(this);
}

bool QWaitCondition::wait(QMutex *mutex, QDeadlineTimer deadline)
{
    static const auto original = functionOfQt<bool (*)(QWaitCondition *, QMutex *, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    release(mutex);
    const bool isWoken = original(this, mutex, deadline);
    acquire(mutex);
    return isWoken;
}

void QSemaphore::acquire(int n)
{
    static const auto original = functionOfQt<void (*)(QSemaphore *, int)>("_ZN10QSemaphore7acquireEi");
    original(this, n);
    ::acquire(this);
}

bool QSemaphore::tryAcquire(int n)
{
    return tryAcquire(n, 0);
}

bool QSemaphore::tryAcquire(int n, int timeout)
{
    static const auto original = functionOfQt<bool (*)(QSemaphore *, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    const bool isAcquired = original(this, n, timeout);
    if (isAcquired)
        ::acquire(this);
    return isAcquired;
}

void QSemaphore::release(int n)
{
    static const auto original = functionOfQt<void (*)(QSemaphore *, int)>("_ZN10QSemaphore7releaseEi");
    ::release(this);
    original(this, n);
}

void QThreadPool::start(QRunnable *runnable, int priority)
{
    static const auto original =
        functionOfQt<void (*)(QThreadPool *, QRunnable *, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    original(this, new KnownRunnable(runnable, this), priority);
}

void QThreadPool::start(std::function<void()> function, int priority)
{
    start(QRunnable::create(std::move(function)), priority);
}

bool QThreadPool::tryStart(QRunnable *runnable)
{
    static const auto original =
        functionOfQt<bool (*)(QThreadPool *, QRunnable *)>("_ZN11QThreadPool8tryStartEP9QRunnable");
    auto *const known = new KnownRunnable(runnable, this);
    const bool isStarted = original(this, known);
    if (!isStarted)
        delete known;
    return isStarted;
}

bool QThreadPool::waitForDone(int ms)
{
    static const auto original = functionOfQt<bool (*)(QThreadPool *, int)>("_ZN11QThreadPool11waitForDoneEi");
    const bool isDone = original(this, ms);
    if (isDone)
        acquire(this);
    return isDone;
}

bool QFutureInterfaceBase::derefT() const
{
    static const auto original =
        functionOfQt<bool (*)(const QFutureInterfaceBase *)>("_ZNK20QFutureInterfaceBase6derefTEv");
    const void *const results = d;
    release(results);
    const bool isReferred = original(this);
    if (!isReferred)
        acquire(results); // which are deleted now
    return isReferred;
}

void QThread::start(Priority priority)
{
    static const auto original = functionOfQt<void (*)(QThread *, Priority)>("_ZN7QThread5startENS_8PriorityE");
    const auto end = [this] {
        acquire(this); // what whoever let it end had done
        release(this);
    };
    QObject::connect(this, &QThread::finished, this, end, Qt::DirectConnection);
    original(this, priority);
}

void QThread::quit()
{
    static const auto original = functionOfQt<void (*)(QThread *)>("_ZN7QThread4quitEv");
    release(this);
    original(this);
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto original = functionOfQt<bool (*)(QThread *, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool hasEnded = original(this, deadline);
    if (hasEnded)
        acquire(this);
    return hasEnded;
}

bool QThread::wait(unsigned long time)
{
    return wait(time == ULONG_MAX ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(qint64(time)));
}

void QMetaObject::activate(QObject *sender, const QMetaObject *metaObject, int signal, void **arguments)
{
    using Function = void (*)(QObject *, const QMetaObject *, int, void **);
    static const auto original = functionOfQt<Function>("_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    release(sender);
    // For other threads Qt makes copies of the arguments, and hands them over under locks that cannot be seen.
    const Watch watch(false);
    original(sender, metaObject, signal, arguments);
}

QMetaObject::Connection QObject::connectImpl(const QObject *sender, void **signal, const QObject *receiver,
                                             void **slotFunction, QtPrivate::QSlotObjectBase *slot,
                                             Qt::ConnectionType type, const int *types, const QMetaObject *metaObject)
{
    using Function =
        QMetaObject::Connection (*)(const QObject *, void **, const QObject *, void **, QtPrivate::QSlotObjectBase *,
                                    Qt::ConnectionType, const int *, const QMetaObject *);
    static const auto original =
        functionOfQt<Function>("_ZN7QObject11connectImplEPKS_PPvS1_S3_PN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTyp"
                               "eEPKiPK11QMetaObject");
    return original(sender, signal, receiver, slotFunction, new KnownSlot(slot, sender, nullptr), type, types,
                    metaObject);
}

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                   void *result)
{
    using Function = bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static const auto original = functionOfQt<Function>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    const bool isAwaited = type == Qt::BlockingQueuedConnection;
    const char end = 0;
    const bool isInvoked = original(object, new KnownSlot(slot, nullptr, isAwaited ? &end : nullptr), type, result);
    if (isAwaited)
        acquire(&end);
    return isInvoked;
}
