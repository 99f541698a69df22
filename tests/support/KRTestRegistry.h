#pragma once

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

/// The test classes of one test program, by name.
class KRTestRegistry
{
public:
    using Maker = std::function<std::unique_ptr<QObject>()>;

    static KRTestRegistry &instance();

    void add(const QByteArray &className, const Maker &maker) { m_makers.insert(className, maker); }

    /// Runs the class named by the first argument, or every class; the other arguments go to Qt Test.
    /// Returns the number of failed tests, or 1 when there is no such class.
    int run(const QStringList &arguments) const;

private:
    QMap<QByteArray, Maker> m_makers;
};

/// A namespace-scope object of this type enters @p Test into the registry of the program.
template <typename Test>
class KRTestRegistration
{
public:
    KRTestRegistration()
    {
        KRTestRegistry::instance().add(Test::staticMetaObject.className(), [] { return std::make_unique<Test>(); });
    }
};
