#include "KRTextTable.h"

#include <KRGeoLocation/KRGeoArc.h>

#include <algorithm>

QString KRTextTable::aligned(const QList<QStringList> &rows, const QList<int> &numberColumns)
{
    QList<int> widths;
    for (const QStringList &row : rows) {
        for (int column = 0; column < row.size(); ++column) {
            if (widths.size() <= column)
                widths.append(0);
            widths[column] = std::max(widths.at(column), int(row.at(column).size()));
        }
    }
    QString text;
    for (const QStringList &row : rows) {
        QString line;
        for (int column = 0; column < row.size(); ++column) {
            const QString &cell = row.at(column);
            line += numberColumns.contains(column) ? cell.rightJustified(widths.at(column))
                                                   : cell.leftJustified(widths.at(column));
            line += QLatin1String("  ");
        }
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        text += line + QLatin1Char('\n');
    }
    return text;
}

QString KRTextTable::degrees(const KRGeoArc &angle)
{
    return QString::number(angle.decimalDegrees(), 'f', 5);
}
