#include "KRFencedBlocks.h"

#include "KRTestFile.h"

#include <utility>

namespace {

const QString fence = QStringLiteral("```");

KRFencedBlock opened(const QString &opening, int line)
{
    KRFencedBlock block;
    block.line = line;
    QStringList words = opening.mid(fence.size()).simplified().split(QLatin1Char(' '));
    block.language = words.takeFirst();
    for (const QString &word : std::as_const(words)) {
        const int equals = word.indexOf(QLatin1Char('='));
        if (equals < 0)
            block.marks.append(word);
        else
            block.properties.insert(word.left(equals), word.mid(equals + 1));
    }
    return block;
}

} // namespace

QList<KRFencedBlock> fencedBlocksOf(const QString &fileName)
{
    QList<KRFencedBlock> blocks;
    bool isInside = false;
    int number = 0;
    const QStringList lines = QString::fromUtf8(KRTestFile::content(fileName)).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        ++number;
        if (line.startsWith(fence)) {
            if (!isInside)
                blocks.append(opened(line, number));
            isInside = !isInside;
        } else if (isInside) {
            blocks.last().text += line + QLatin1Char('\n');
        }
    }
    return blocks;
}
