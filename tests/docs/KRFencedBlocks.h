#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/**
 * A fenced block of a Markdown page. Behind its language the opening fence may say more: single words are marks,
 * "key=value" is a property. Pages show neither, tests act upon both.
 */
struct KRFencedBlock {
    QString language;
    QStringList marks;
    QMap<QString, QString> properties;
    QString text; ///< with a line break at the end of each line
    int line = 0; ///< of the opening fence, counted from 1

    bool hasMark(const QString &mark) const { return marks.contains(mark); }
    QString place() const { return QStringLiteral("the block in line %1").arg(line); }
};

/// All blocks of a page in their order; none for a page that cannot be read.
QList<KRFencedBlock> fencedBlocksOf(const QString &fileName);
