#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"

#include <KRCore/KRQtCompat.h>

#include <QApplication>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

int main(int argc, char *argv[])
{
    // Test programs run side by side; none may find the caches or documents of another, or of the user.
    const QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("KRTests"));
    QCoreApplication::setApplicationName(QStringLiteral("KRTests"));
    KRQtCompat::enableHighDpi();
    const QApplication application(argc, argv);
    const KRTemporarySettings settings;
    return KRTestRegistry::instance().run(QCoreApplication::arguments());
}
