#pragma once

#include "KREnumToStringTable.h"

/**
 * One value of a bit-valued enumeration @p T, an unscoped enumeration over int, with its text form.
 *
 * Holds any combination of bits, also such that have no enumerator; 0 by default. Operations that yield a value
 * yield the bare enumeration, from which every derived class can be made. A derived class names the keys in
 * fillTable(), inherits the constructors, and adds one from a text that hands enumToStringTable().decodeCSV() to
 * setValue(): the constructor of this class could not reach fillTable().
 *
 * All instances in the process share one table per @p T, filled on first use from whatever thread.
 */
template <typename T>
class Q_DECL_EXPORT KREnumWrapper
{
public:
    KREnumWrapper() = default;
    /// Not explicit: the enumeration and its wrapper stand for the same thing.
    KREnumWrapper(T value) : m_value(value) { }
    KREnumWrapper(const KREnumWrapper &other) = default;
    KREnumWrapper(KREnumWrapper &&other) noexcept = default;
    KREnumWrapper &operator=(const KREnumWrapper &other) = default;
    KREnumWrapper &operator=(KREnumWrapper &&other) noexcept = default;
    virtual ~KREnumWrapper() = default;

    T value() const { return m_value; }
    void setValue(T value) { m_value = value; }

    bool operator==(T other) const { return m_value == other; }
    bool operator!=(T other) const { return m_value != other; }
    bool operator<(T other) const { return static_cast<int>(m_value) < static_cast<int>(other); }
    bool operator<=(T other) const { return static_cast<int>(m_value) <= static_cast<int>(other); }
    bool operator>(T other) const { return static_cast<int>(m_value) > static_cast<int>(other); }
    bool operator==(const KREnumWrapper &other) const { return *this == other.m_value; }
    bool operator!=(const KREnumWrapper &other) const { return *this != other.m_value; }
    bool operator<(const KREnumWrapper &other) const { return *this < other.m_value; }
    bool operator<=(const KREnumWrapper &other) const { return *this <= other.m_value; }
    bool operator>(const KREnumWrapper &other) const { return *this > other.m_value; }

    T operator|(T other) const { return static_cast<T>(static_cast<int>(m_value) | static_cast<int>(other)); }
    T operator&(T other) const { return static_cast<T>(static_cast<int>(m_value) & static_cast<int>(other)); }
    T operator|(const KREnumWrapper &other) const { return *this | other.m_value; }
    T operator&(const KREnumWrapper &other) const { return *this & other.m_value; }

    KREnumWrapper &operator|=(T other)
    {
        m_value = *this | other;
        return *this;
    }
    KREnumWrapper &operator&=(T other)
    {
        m_value = *this & other;
        return *this;
    }
    KREnumWrapper &operator|=(const KREnumWrapper &other) { return *this |= other.m_value; }
    KREnumWrapper &operator&=(const KREnumWrapper &other) { return *this &= other.m_value; }

    /// Clears the bits of @p other.
    void exclude(T other) { *this &= static_cast<T>(~static_cast<int>(other)); }
    void exclude(const KREnumWrapper &other) { exclude(other.m_value); }

    /// Sets the bits of @p value.
    virtual void expandTo(T value) { *this |= value; }
    void expandTo(const KREnumWrapper &other) { expandTo(other.m_value); }

    /// The bits that both have; the value itself stays as it is.
    T reducedTo(T value) const { return *this & value; }

    /// Any value but 0.
    virtual bool isValid() const { return m_value != 0; }

    /// Adds the keys to an empty table; runs once per process and must not ask for the table itself.
    virtual void fillTable(KREnumToStringTable<T> *table) const = 0;

    const KREnumToStringTable<T> &enumToStringTable() const
    {
        // A local static is initialised under a lock of its own; whoever comes meanwhile waits for it.
        static const KREnumToStringTable<T> table = filledTable();
        return table;
    }

    /// The text form: the keys of all bits that have one, joined by commas.
    QString keys() const { return enumToStringTable().encodeCSV(m_value); }

private:
    KREnumToStringTable<T> filledTable() const
    {
        KREnumToStringTable<T> table;
        fillTable(&table);
        return table;
    }

    T m_value = static_cast<T>(0);
};
