#include "KRSettings.h"

#include "KRErrorHistory.h"

#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>
#include <QSettings>

#include <memory>

namespace {

QString &chosenFileName()
{
    static QString fileName;
    return fileName;
}

std::unique_ptr<QSettings> openStore()
{
    if (!chosenFileName().isEmpty())
        return std::make_unique<QSettings>(chosenFileName(), QSettings::IniFormat);
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, QCoreApplication::organizationName(),
                                       QCoreApplication::applicationName());
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
    return openStore()->value(key, defaultValue);
}

void KRSettings::storeValue(const QString &key, const QVariant &value)
{
    const std::unique_ptr<QSettings> store = openStore();
    bool isStored = hasRoom(store->fileName());
    if (isStored) {
        store->setValue(key, value);
        store->sync();
        isStored = store->status() == QSettings::NoError;
    }
    if (!isStored) {
        const QString reason =
            QCoreApplication::translate("KRSettings", "Die Einstellungen konnten nicht gespeichert werden.");
        KRErrorHistory::report(nullptr, store->fileName(), reason);
    }
}
