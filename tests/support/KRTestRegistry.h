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

/// Instantiating it, by "template class KRTestRegistration<tst_X>;", enters @p Test into the registry of the program.
/// There is no name in that, so that sources with it can be compiled together.
template <typename Test>
class KRTestRegistration
{
    KRTestRegistration()
    {
        KRTestRegistry::instance().add(Test::staticMetaObject.className(), [] { return std::make_unique<Test>(); });
    }

    static const KRTestRegistration entry;
};

template <typename Test>
const KRTestRegistration<Test> KRTestRegistration<Test>::entry;
