#include "KRMessageText.h"

#include <QString>

#include <string>

namespace {

/// Part of many emoji and of Persian and Indian words, and harmless.
bool joinsLetters(char32_t character)
{
    return character == 0x200C || character == 0x200D;
}

bool endsLine(char32_t character)
{
    return character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

} // namespace

QString KRMessageText::printable(const QString &text)
{
    std::u32string characters = text.toStdU32String();
    for (char32_t &character : characters) {
        if (endsLine(character) || (!QChar::isPrint(character) && !joinsLetters(character)))
            character = U'?';
    }
    return QString::fromStdU32String(characters);
}
