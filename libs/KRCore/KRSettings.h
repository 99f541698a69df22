#pragma once

#include "KRConfigItem.h"
#include "KRCoreExport.h"

#include <QVariant>

/**
 * Base of classes that keep their KRConfigItems beyond the end of the process.
 *
 * All of them share one INI file: that of the organisation and application which the host has set on
 * QCoreApplication, or the one named with setFileName(). What is no regular file, or is larger than
 * KRInputLimits::settingsBytes, is neither read nor written. GUI thread only.
 */
class KRCORE_EXPORT KRSettings
{
public:
    /// From now on everything is loaded from and saved to this file; an empty name brings the host's own back.
    static void setFileName(const QString &fileName);
    /// What setFileName() has set; empty for the host's own file.
    static QString fileName();

    /// Whether a file is refused as well that holds values of types which QSettings stores as binary data. No setting
    /// here has one, and a damaged one may crash; false by default, as a host may keep such values of its own there.
    static void refuseForeignTypes(bool isRefusing);

protected:
    KRSettings() = default;
    ~KRSettings() = default;

    /// Takes the stored value, or the default where none is stored.
    template <typename T>
    static void load(KRConfigItem<T> &item)
    {
        item.setValue(storedValue(item.key(), QVariant::fromValue(item.defaultValue())).template value<T>());
    }

    /// Writes at once; a failure is reported and changes nothing else.
    template <typename T>
    static void save(const KRConfigItem<T> &item)
    {
        storeValue(item.key(), QVariant::fromValue(item.value()));
    }

private:
    static QVariant storedValue(const QString &key, const QVariant &defaultValue);
    static void storeValue(const QString &key, const QVariant &value);
};
