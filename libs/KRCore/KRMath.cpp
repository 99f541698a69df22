#include "KRMath.h"

#include <QString> // defines QStringView::toDouble()

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

bool KRMath::epsilonEqual(double a, double b, double epsilon)
{
    return std::abs(a - b) <= epsilon;
}

int KRMath::toInt(double value)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    if (std::isnan(value))
        return 0;
    if (value <= lowest)
        return lowest;
    if (value >= highest)
        return highest;
    return static_cast<int>(value);
}

double KRMath::toDouble(QStringView text, double defaultValue)
{
    // Both ways round correctly, and what the first one takes of these characters, the second one takes too.
    constexpr int mostCharacters = 32;
    constexpr std::string_view signs = ".-+eE";
    const QStringView number = text.trimmed();
    const qsizetype size = number.size();
    if (size <= mostCharacters) {
        char characters[mostCharacters];
        const QChar *const source = number.data();
        qsizetype plain = 0;
        while (plain < size) {
            const ushort unicode = source[plain].unicode();
            const bool isDigit = unicode >= '0' && unicode <= '9';
            if (!isDigit && (unicode > 'e' || signs.find(char(unicode)) == std::string_view::npos))
                break;
            characters[plain++] = char(unicode);
        }
        double value = 0.0;
        if (plain == size) {
            const std::from_chars_result result = std::from_chars(characters, characters + size, value);
            if (result.ec == std::errc() && result.ptr == characters + size)
                return value;
        }
    }
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber ? value : defaultValue;
}
