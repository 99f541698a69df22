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

bool &refusesForeignTypes()
{
    static bool isRefusing = false;
    return isRefusing;
}

/// What QSettings makes of the values, roughly: without what may stand between their letters, and with the characters
/// that are given by numbers.
QByteArray unescaped(const QByteArray &ini)
{
    static const QByteArray digits("0123456789abcdef");
    QByteArray text;
    text.reserve(ini.size());
    for (int i = 0; i < ini.size(); ++i) {
        if (ini.at(i) != '\\') {
            if (ini.at(i) > ' ' && ini.at(i) != '"')
                text += ini.at(i);
            continue;
        }
        ++i;
        const bool isHexadecimal = i < ini.size() && ini.at(i) == 'x';
        const int base = isHexadecimal ? 16 : 8;
        const int first = isHexadecimal ? i + 1 : i;
        int end = first;
        quint16 code = 0; // of any number of digits the last ones count
        for (; end < ini.size(); ++end) {
            const int digit = digits.indexOf(char(QChar::toLower(uint(uchar(ini.at(end))))));
            if (digit < 0 || digit >= base)
                break;
            code = quint16(code * base + digit);
        }
        if (end > first) {
            text += code < 0x80 ? char(code) : '?';
            i = end - 1;
        }
    }
    return text;
}

/// Whether QSettings would decode binary data, which may ask for any amount of memory, nest without end, or hold types
/// whose readers trust them. A text that only looks like that is refused as well.
bool holdsForeignTypes(const QFileInfo &file)
{
    QFile source(file.filePath());
    if (!source.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = unescaped(source.read(KRInputLimits::settingsBytes));
    return text.contains("@Variant(") || text.contains("@DateTime(");
}

/// QSettings would wait for ever for a pipe, and take long to read much. The user is told once for each file.
bool isReadable(const QFileInfo &file)
{
    static QString complainedOf;
    if (!file.exists())
        return true;
    if (file.isFile() && file.size() <= KRInputLimits::settingsBytes
        && !(refusesForeignTypes() && holdsForeignTypes(file)))
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

/// QSettings waits for ever for the lock where that is a pipe or a folder.
bool canBeLocked(const QString &fileName)
{
    const QFileInfo lock(fileName + QStringLiteral(".lock"));
    return !lock.exists() || lock.isFile();
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

void KRSettings::refuseForeignTypes(bool isRefusing)
{
    refusesForeignTypes() = isRefusing;
}

QVariant KRSettings::storedValue(const QString &key, const QVariant &defaultValue)
{
    const std::unique_ptr<QSettings> store = openStore();
    return store ? store->value(key, defaultValue) : defaultValue;
}

void KRSettings::storeValue(const QString &key, const QVariant &value)
{
    const std::unique_ptr<QSettings> store = openStore();
    bool isStored = store && canBeLocked(store->fileName()) && hasRoom(store->fileName());
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
