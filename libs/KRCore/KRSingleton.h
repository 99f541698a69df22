#pragma once

#include <QtGlobal>

/**
 * Gives a class one instance per process, made on first use and kept until the process ends.
 *
 * @code
 * class KRPlaces : public KRSingleton<KRPlaces> { … };
 * KRPlaces::instance()->…
 * @endcode
 *
 * The constructor of @p T stays public where tests need objects of their own. Once the object is built, and
 * before anybody else gets it, its setupInstance() runs: neither that nor the constructor may call instance().
 * The first call may come from any thread.
 */
template <typename T>
class Q_DECL_EXPORT KRSingleton
{
public:
    /// Never null, always the same object.
    static T *instance()
    {
        // Intended: never deleted, so that singletons may use each other while the process ends.
        static T *const theInstance = create();
        return theInstance;
    }

    /// For @p T to redeclare: what has to be done once the object is complete.
    void setupInstance() { }

protected:
    KRSingleton() = default;
    ~KRSingleton() = default;

private:
    Q_DISABLE_COPY(KRSingleton)

    static T *create()
    {
        T *const object = new T;
        object->setupInstance();
        return object;
    }
};
