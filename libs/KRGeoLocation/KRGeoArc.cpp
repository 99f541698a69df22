#include "KRGeoArc.h"

#include <KRCore/KRMath.h>
#include <KRCore/KRRational.h>

#include <QDebug>
#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>
#include <QVariant>

namespace {

constexpr double degreesPerRadian = 57.29577951308232;
constexpr double radiansPerDegree = 0.017453292519943295;

bool containsAny(const QString &text, QChar letter, QChar otherLetter)
{
    return text.contains(letter, Qt::CaseInsensitive) || text.contains(otherLetter, Qt::CaseInsensitive);
}

// Unlike -std::abs() these never turn 0 into -0, whose text would have a sign.
double negative(double value)
{
    return value > 0.0 ? -value : value;
}

double positive(double value)
{
    return value < 0.0 ? -value : value;
}

} // namespace

KRGeoArc KRGeoArc::fromRadians(double radians)
{
    return radians * degreesPerRadian;
}

KRGeoArc KRGeoArc::fromVariant(const QVariant &variant)
{
    // Only Qt 5 takes a variant that holds a null text for a null variant.
    const bool holdsNullText = variant.userType() == QMetaType::QString && variant.toString().isNull();
    return variant.isNull() || holdsNullText ? invalidDegrees : variant.toReal();
}

KRGeoArc KRGeoArc::fromString(const QString &text)
{
    static const QRegularExpression marksAndLetters(QStringLiteral("[°'\"\\sSsNnEeWw]"));
    const QStringList parts = QString(text).remove(marksAndLetters).split(QLatin1Char(','), Qt::SkipEmptyParts);
    if (parts.size() < 3)
        return invalidDegrees;

    double degrees = parts.at(0).toInt();
    double minutes = parts.at(1).toInt();
    double seconds = parts.at(2).toDouble();
    // Intended: one after the other, so that "West" (it holds an "e") ends positive and "Ost" negative.
    if (containsAny(text, QLatin1Char('S'), QLatin1Char('W'))) {
        degrees = negative(degrees);
        minutes = negative(minutes);
        seconds = negative(seconds);
    }
    if (containsAny(text, QLatin1Char('N'), QLatin1Char('E'))) {
        degrees = positive(degrees);
        minutes = positive(minutes);
        seconds = positive(seconds);
    }
    return degrees + minutes / 60.0 + seconds / 3600.0;
}

double KRGeoArc::radians() const
{
    return m_decimalDegrees * radiansPerDegree;
}

QVariant KRGeoArc::toVariant() const
{
    return m_decimalDegrees;
}

int KRGeoArc::degree() const
{
    return KRMath::toInt(m_decimalDegrees);
}

int KRGeoArc::minute() const
{
    return KRMath::toInt(m_decimalDegrees * 60) % 60;
}

double KRGeoArc::second() const
{
    return m_decimalDegrees * 3600 - (degree() * 60.0 + minute()) * 60.0;
}

KRGeoArc &KRGeoArc::operator+=(const KRGeoArc &other)
{
    m_decimalDegrees += other.m_decimalDegrees;
    return *this;
}

bool KRGeoArc::setDecimalDegrees(double decimalDegrees)
{
    const bool isDifferent = m_decimalDegrees != decimalDegrees;
    m_decimalDegrees = decimalDegrees;
    return isDifferent;
}

bool KRGeoArc::setDegree(int degree, int minute, double second)
{
    return setDecimalDegrees(degree + minute / 60.0 + second / 3600.0);
}

QString KRGeoArc::toString() const
{
    return QString::number(m_decimalDegrees, 'f', 16);
}

QString KRGeoArc::toExifRational() const
{
    constexpr int partsPerSecond = 100000;
    const KRRational seconds(KRMath::toInt(std::abs(second()) * partsPerSecond + 0.5), partsPerSecond);
    return QStringLiteral("%1/1 %2/1 %3").arg(qAbs(qint64(degree()))).arg(qAbs(minute())).arg(seconds.toString());
}

void KRGeoArc::writeTo(QUrlQuery &query, const QString &key) const
{
    query.addQueryItem(key, QString::fromLatin1(QUrl::toPercentEncoding(toString())));
}

double KRGeoArc::parseDegrees(const QString &text, QChar positiveLetter, QChar negativeLetter)
{
    const bool isNegative = text.startsWith(negativeLetter);
    const bool hasLetter = isNegative || text.startsWith(positiveLetter);
    bool isNumber = false;
    const double degrees = (hasLetter ? text.mid(1) : text).toDouble(&isNumber);
    if (!isNumber)
        return invalidDegrees;
    return isNegative ? -degrees : degrees;
}

double KRGeoArc::foldedInto(double decimalDegrees, double limit)
{
    if (!std::isfinite(decimalDegrees))
        return invalidDegrees;
    const double turn = 2.0 * limit;
    double folded = decimalDegrees;
    // Beyond about 1e19 subtracting one turn changes nothing any more, and the loops would not end.
    if (std::abs(folded) > 1e6)
        folded = std::fmod(folded, turn);
    while (folded > limit)
        folded -= turn;
    while (folded < -limit)
        folded += turn;
    return folded;
}

QString KRGeoArc::fillPattern(const QString &pattern) const
{
    // Intended: the seconds are rounded for themselves, so that 8.2 degrees read 8° 11′ 60″.
    return pattern.arg(QString::number(qAbs(qint64(degree()))), QString::number(qAbs(minute())),
                       QString::number(std::abs(second())));
}

QDebug operator<<(QDebug debug, const KRGeoArc &angle)
{
    const QDebugStateSaver saver(debug);
    debug.noquote() << angle.toString();
    return debug;
}
