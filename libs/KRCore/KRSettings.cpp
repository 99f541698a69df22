#include "KRSettings.h"

#include "KRErrorHistory.h"
#include "KRInputLimits.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>

#include <memory>

namespace {

QString &chosenFileName()
{
    static QString fileName;
    return fileName;
}

/// The one file that is opened. QSettings would read those for all programs of the organisation besides, and all of
/// them before it tells their names.
QString usedFileName()
{
    if (!chosenFileName().isEmpty())
        return chosenFileName();
    return QStringLiteral("%1/%2/%3.ini")
        .arg(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
             QCoreApplication::organizationName(), QCoreApplication::applicationName());
}

/// QSettings would wait for ever for a pipe, and take long to read much. The user is told once for each file.
bool isReadable(const QFileInfo &file)
{
    static QString complainedOf;
    if (!file.exists() || (file.isFile() && file.size() <= KRInputLimits::settingsBytes))
        return true;
    if (complainedOf != file.filePath()) {
        complainedOf = file.filePath();
        const QString reason = QCoreApplication::translate(
            "KRSettings", "Das kann keine Datei mit Einstellungen sein; es gelten die üblichen.");
        KRErrorHistory::report(nullptr, file.filePath(), reason);
    }
    return false;
}

/// Null where the file is none that may be read.
std::unique_ptr<QSettings> openStore()
{
    if (!isReadable(QFileInfo(usedFileName())))
        return nullptr;
    return std::make_unique<QSettings>(usedFileName(), QSettings::IniFormat);
}

/// Where the disk is full QSettings would put an empty file in the place of its own.
bool hasRoom(const QString &fileName)
{
    constexpr int largestChange = 65536; // bytes
    const QByteArray bytes(int(QFile(fileName).size()) + largestChange, ' ');
    QSaveFile trial(fileName); // never committed
    return !trial.open(QIODevice::WriteOnly) || (trial.write(bytes) == bytes.size() && trial.flush());
}

} // namespace

void KRSettings::setFileName(const QString &fileName)
{
    chosenFileName() = fileName;
}

QString KRSettings::fileName()
{
    return chosenFileName();
}

QVariant KRSettings::storedValue(const QString &key, const QVariant &defaultValue)
{
    const std::unique_ptr<QSettings> store = openStore();
    return store ? store->value(key, defaultValue) : defaultValue;
}

void KRSettings::storeValue(const QString &key, const QVariant &value)
{
    const std::unique_ptr<QSettings> store = openStore();
    bool isStored = store && hasRoom(store->fileName());
    if (isStored) {
        store->setValue(key, value);
        store->sync();
        isStored = store->status() == QSettings::NoError;
    }
    if (!isStored) {
        const QString reason =
            QCoreApplication::translate("KRSettings", "Die Einstellungen konnten nicht gespeichert werden.");
        KRErrorHistory::report(nullptr, usedFileName(), reason);
    }
}
