#pragma once

/// What the setters of value classes share.
namespace KRValue {

/// Replaces @p field when @p value differs from it; tells whether it did.
template <typename T>
bool replaceIfDifferent(T &field, const T &value)
{
    if (field == value)
        return false;
    field = value;
    return true;
}

} // namespace KRValue
