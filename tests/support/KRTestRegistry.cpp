#include "KRTestRegistry.h"

#include <QtTest>

#include <cstdio>

KRTestRegistry &KRTestRegistry::instance()
{
    static KRTestRegistry registry;
    return registry;
}

int KRTestRegistry::run(const QStringList &arguments) const
{
    QStringList testArguments = arguments;
    const QByteArray wanted = testArguments.value(1).toUtf8();
    if (wanted.isEmpty() || wanted.startsWith('-')) {
        int failed = 0;
        for (const Maker &maker : m_makers)
            failed += QTest::qExec(maker().get(), testArguments);
        return failed;
    }
    if (!m_makers.contains(wanted)) {
        std::fprintf(stderr, "no test class %s in this program\n", wanted.constData());
        return 1;
    }
    testArguments.removeAt(1);
    return QTest::qExec(m_makers.value(wanted)().get(), testArguments);
}
