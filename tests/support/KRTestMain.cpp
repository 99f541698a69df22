#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char *argv[])
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("KRTests"));
    QCoreApplication::setApplicationName(QStringLiteral("KRTests"));
    const QApplication application(argc, argv);
    const KRTemporarySettings settings;
    return KRTestRegistry::instance().run(QCoreApplication::arguments());
}
