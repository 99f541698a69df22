#include "KRMessageText.h"

#include <QString>
#include <QVector>

namespace {

/// Part of many emoji and of Persian and Indian words, and harmless.
bool joinsLetters(uint character)
{
    return character == 0x200C || character == 0x200D;
}

} // namespace

QString KRMessageText::printable(const QString &text)
{
    QVector<uint> characters = text.toUcs4();
    for (uint &character : characters) {
        if (!QChar::isPrint(character) && !joinsLetters(character))
            character = '?';
    }
    return QString::fromUcs4(characters.constData(), characters.size());
}
