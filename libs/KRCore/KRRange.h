#pragma once

#include <QDateTime>

/// What KRRange needs to know about the type of its ends. Specialise it where these answers do not fit.
template <typename T>
struct KRRangeTraits {
    static bool isValid(const T &minimum, const T &maximum) { return maximum >= minimum; }
    static T center(const T &minimum, const T &maximum) { return (minimum + maximum) / 2; }
};

/// A time frame is valid when it has a duration: a single instant is none, unset ends are equal too.
template <>
struct KRRangeTraits<QDateTime> {
    static bool isValid(const QDateTime &minimum, const QDateTime &maximum) { return maximum != minimum; }
    static QDateTime center(const QDateTime &minimum, const QDateTime &maximum)
    {
        return minimum.addMSecs(minimum.msecsTo(maximum) / 2);
    }
};

/**
 * A closed interval: both ends belong to it. Unset is one whose ends both are T().
 *
 * The ends are kept as given, in any order; isValid() tells whether they make an interval. Compares with the
 * operators of @p T, so with their tolerance where they have one. Nothing throws.
 *
 * Exported as a whole, so that all libraries share one virtual table for each @p T.
 */
template <typename T>
class Q_DECL_EXPORT KRRange
{
public:
    /// Unset.
    KRRange() = default;
    KRRange(const T &minimum, const T &maximum) : m_minimum(minimum), m_maximum(maximum) { }
    KRRange(const KRRange &other) = default;
    KRRange(KRRange &&other) noexcept = default;
    KRRange &operator=(const KRRange &other) = default;
    KRRange &operator=(KRRange &&other) noexcept = default;
    virtual ~KRRange() = default;

    virtual bool operator==(const KRRange<T> &other) const
    {
        return m_minimum == other.m_minimum && m_maximum == other.m_maximum;
    }
    virtual bool operator!=(const KRRange<T> &other) const { return !(*this == other); }
    /// By the lower ends, then by the upper ones; a valid range comes before an invalid one.
    virtual bool operator<(const KRRange<T> &other) const
    {
        if (!isValid() || !other.isValid())
            return isValid();
        return m_minimum == other.m_minimum ? m_maximum < other.m_maximum : m_minimum < other.m_minimum;
    }

    /// Moves the end that @p value lies beyond; an unset range becomes (value, value).
    virtual void expandTo(const T &value)
    {
        if (isNull()) {
            m_minimum = value;
            m_maximum = value;
        } else if (m_maximum < value) {
            m_maximum = value;
        } else if (value < m_minimum) {
            m_minimum = value;
        }
    }

    virtual T center() const { return KRRangeTraits<T>::center(m_minimum, m_maximum); }
    virtual bool isValid() const { return KRRangeTraits<T>::isValid(m_minimum, m_maximum); }
    virtual bool contains(const T &value) const { return m_minimum <= value && m_maximum >= value; }
    /// Whether it contains both ends of @p other.
    virtual bool contains(const KRRange<T> &other) const
    {
        return contains(other.m_minimum) && contains(other.m_maximum);
    }
    virtual bool intersects(const KRRange<T> &other) const
    {
        return contains(other.m_minimum) || contains(other.m_maximum) || other.contains(m_minimum)
               || other.contains(m_maximum);
    }

    const T &minimum() const { return m_minimum; }
    const T &maximum() const { return m_maximum; }
    /// True when both ends are T().
    bool isNull() const { return m_minimum == T() && m_maximum == T(); }

protected:
    void setMinimum(const T &minimum) { m_minimum = minimum; }
    void setMaximum(const T &maximum) { m_maximum = maximum; }

private:
    T m_minimum = T();
    T m_maximum = T();
};
