#pragma once

#include <QtGlobal>

#if defined(__SANITIZE_THREAD__)
#define KR_THREAD_SANITIZER
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KR_THREAD_SANITIZER
#endif
#endif

#ifdef KR_THREAD_SANITIZER
extern "C" void __tsan_acquire(void *address);
extern "C" void __tsan_release(void *address);
#endif

/**
 * Tells ThreadSanitizer that work which was done in other threads has come back; without it nothing happens here.
 *
 * Qt passes it on under locks of its own, but as its libraries are built without ThreadSanitizer, these cannot be seen,
 * and all that the threads have written would look like a race.
 */
class KRThreadHandover
{
public:
    KRThreadHandover() = default;

    /// In a thread that has done the work or a part of it.
    void giveBack()
    {
#ifdef KR_THREAD_SANITIZER
        __tsan_release(this);
#endif
    }

    /// In the thread that goes on with it, once all others have given it back.
    void takeBack()
    {
#ifdef KR_THREAD_SANITIZER
        __tsan_acquire(this);
#endif
    }

private:
    Q_DISABLE_COPY(KRThreadHandover)
};

#undef KR_THREAD_SANITIZER
