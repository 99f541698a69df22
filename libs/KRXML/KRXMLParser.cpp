#include "KRXMLParser.h"

double KRXMLParser::doubleAttribute(const QDomElement &element, const QString &name, double defaultValue)
{
    bool isNumber = false;
    const double value = element.attribute(name).toDouble(&isNumber);
    return isNumber ? value : defaultValue;
}

int KRXMLParser::intAttribute(const QDomElement &element, const QString &name, int defaultValue)
{
    bool isNumber = false;
    const int value = element.attribute(name).toInt(&isNumber, 10);
    return isNumber ? value : defaultValue;
}

QString KRXMLParser::text(const QDomNode &node, const QString &childName, const QString &defaultValue)
{
    const QDomElement child = node.firstChildElement(childName);
    return child.isNull() ? defaultValue : child.text();
}

double KRXMLParser::doubleText(const QDomNode &node, const QString &childName, double defaultValue)
{
    bool isNumber = false;
    const double value = text(node, childName, QString()).toDouble(&isNumber);
    return isNumber ? value : defaultValue;
}

QDateTime KRXMLParser::dateTime(const QString &text, Qt::DateFormat format, const QDateTime &defaultValue)
{
    // A blank at the end would turn UTC into local time, one in front makes the text unreadable.
    const QDateTime time = QDateTime::fromString(text.trimmed(), format);
    return time.isValid() ? time : defaultValue;
}

QDateTime KRXMLParser::dateTimeText(const QDomNode &node, const QString &childName, Qt::DateFormat format,
                                    const QDateTime &defaultValue)
{
    return dateTime(text(node, childName, QString()), format, defaultValue);
}

QColor KRXMLParser::readColor(const QString &text, KRColorByteOrder order)
{
    const QString trimmed = text.trimmed();
    const QColor color(trimmed);
    if (!color.isValid())
        return {0, 0, 0, 0};
    const bool hasEightDigits = trimmed.startsWith(QLatin1Char('#')) && trimmed.size() == 9;
    if (order == AbgrByteOrder && hasEightDigits)
        return {color.blue(), color.green(), color.red(), color.alpha()};
    return color;
}
