#pragma once

#include "KRValue.h"

#include <QString>

/**
 * One setting: its key, its default, and the value it has at present, which is the default at first.
 *
 * @p T is any type that QSettings can store. KRSettings loads and saves it.
 */
template <typename T>
class KRConfigItem
{
public:
    KRConfigItem(const QString &key, const T &defaultValue)
        : m_key(key), m_defaultValue(defaultValue), m_value(defaultValue)
    { }

    QString key() const { return m_key; }
    T defaultValue() const { return m_defaultValue; }
    T value() const { return m_value; }

    /// Tells whether anything changed; does not save.
    bool setValue(const T &value) { return KRValue::replaceIfDifferent(m_value, value); }

private:
    QString m_key;
    T m_defaultValue;
    T m_value;
};
