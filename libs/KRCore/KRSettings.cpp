#include "KRSettings.h"

#include "KRErrorHistory.h"

#include <QCoreApplication>
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
    store->setValue(key, value);
    store->sync();
    if (store->status() != QSettings::NoError) {
        const QString reason =
            QCoreApplication::translate("KRSettings", "Die Einstellungen konnten nicht gespeichert werden.");
        KRErrorHistory::report(nullptr, {store->fileName(), 0, 0, reason});
    }
}
