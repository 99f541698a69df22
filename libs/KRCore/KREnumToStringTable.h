#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/**
 * The text keys of the bit values of one enumeration @p T, for storing them as a comma list.
 *
 * Keys match with regard to case and without trimming. A filled table may be read from several threads.
 */
template <typename T>
class Q_DECL_EXPORT KREnumToStringTable
{
public:
    /// What a text that is no key stands for.
    static constexpr T defaultValue = static_cast<T>(0);

    /// Texts list their keys in the order of registration.
    void add(T value, const QString &key) { m_entries.append({value, key}); }

    /// The keys whose bits are all set in @p value. A key for 0 is read but never written: it has no bit.
    QStringList encodeAsList(T value) const
    {
        QStringList keys;
        for (const Entry &entry : m_entries) {
            if (entry.value != 0 && (value & entry.value) == entry.value)
                keys.append(entry.key);
        }
        return keys;
    }

    /// The keys joined by commas; empty when no key fits.
    QString encodeCSV(T value) const { return encodeAsList(value).join(QLatin1Char(',')); }

    /// All values named in a comma list, joined by OR.
    T decodeCSV(const QString &keys) const
    {
        int bits = 0;
        for (const QStringView key : QStringView(keys).split(QLatin1Char(',')))
            bits |= decode(key);
        return static_cast<T>(bits);
    }

private:
    struct Entry {
        T value = defaultValue;
        QString key;
    };

    T decode(QStringView key) const
    {
        for (const Entry &entry : m_entries) {
            if (key == entry.key)
                return entry.value;
        }
        return defaultValue;
    }

    QVector<Entry> m_entries;
};
