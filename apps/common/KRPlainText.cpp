#include "KRPlainText.h"

#include <KRCore/KRMessageText.h>

#include <QFileInfo>
#include <QRegularExpression>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>

namespace {

constexpr int longestToolTip = 600; // characters
constexpr int widestPlainToolTip = 100;
constexpr int mostLines = 30;

constexpr QChar ellipsis(0x2026);

/// Behind a letter: the flag of a part of a country has six of them. Burmese has up to four, Tibetan five.
constexpr int mostMarks = 6;

/// Takes no room of its own: a mark on the letter before, or nothing that shows.
bool isMark(uint character)
{
    const QChar::Category category = QChar::category(character);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing || category == QChar::Other_Format;
}

/// The last place, up to that one, between two characters as readers see them.
int wholeCharacters(const QString &text, int position)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(position);
    const int boundary = finder.isAtBoundary() ? position : finder.toPreviousBoundary();
    // Some scripts and emoji may join without end.
    if (boundary > 0)
        return boundary;
    return text.at(position).isLowSurrogate() ? position - 1 : position;
}

} // namespace

QString KRPlainText::shortened(const QString &text, int mostCharacters)
{
    QString result = text;
    if (result.size() > mostCharacters) {
        int beginning = mostCharacters / 2;
        int end = text.size() - mostCharacters / 2;
        // Characters beyond the first 65536 are two, of which neither can be shown alone.
        if (text.at(beginning).isLowSurrogate())
            --beginning;
        if (text.at(end).isLowSurrogate())
            ++end;
        result = text.left(beginning) + ellipsis + text.mid(end);
    }
    const QString firstLines = result.section(QLatin1Char('\n'), 0, mostLines - 1);
    return firstLines == result ? result : firstLines + ellipsis;
}

QString KRPlainText::beginning(const QString &text, int mostCharacters)
{
    constexpr int charactersPerKept = 20; // no time for more that are left out
    const int end = std::min(int(text.size()), charactersPerKept * mostCharacters);
    QString kept;
    int marks = 0;
    // What comes behind the last character tells whether it is whole.
    for (int i = 0; i < end && kept.size() <= mostCharacters + 1;) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const uint character = isPair ? QChar::surrogateToUcs4(text.at(i), text.at(i + 1)) : text.at(i).unicode();
        const int units = isPair ? 2 : 1;
        marks = isMark(character) ? marks + 1 : 0;
        if (marks <= mostMarks)
            kept.append(text.constData() + i, units);
        i += units;
    }
    return kept.size() <= mostCharacters ? kept : kept.left(wholeCharacters(kept, mostCharacters));
}

QString KRPlainText::oneLine(const QString &text, int mostCharacters)
{
    return KRMessageText::printable(shortened(text, mostCharacters).simplified().remove(QChar(QChar::SoftHyphen)));
}

QString KRPlainText::fileName(const QString &path)
{
    return oneLine(QFileInfo(path).fileName());
}

QString KRPlainText::toolTip(const QString &text)
{
    const QString shown = shortened(text.trimmed(), longestToolTip);
    // Assistive programs read tool tips as they are, with all tags; only rich ones are broken into lines.
    if (shown.size() <= widestPlainToolTip && !Qt::mightBeRichText(shown))
        return shown;
    return Qt::convertFromPlainText(shown, Qt::WhiteSpaceNormal);
}

// Tags are only removed: a table of a few bytes may take any time to lay out, and backgrounds and styles would be
// loaded.
QString KRPlainText::ofHtml(const QString &html)
{
    constexpr QRegularExpression::PatternOptions options =
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption;
    // What is not finished at the end belongs to a text that was shortened.
    static const QRegularExpression invisible(
        QStringLiteral("<!--.*?(?:-->|\\z)|<(script|style)\\b.*?(?:</\\1\\s*>|\\z)"), options);
    static const QRegularExpression separator(QStringLiteral("<(?=/?(?:br|div|h[1-6]|li|p|td|th|tr)\\b)"), options);
    static const QRegularExpression tag(
        QStringLiteral("<[a-z/!?](?:[^<>\"']|\"[^\"]*\"|'[^']*')*+(?:>|(?:\"[^\"]*|'[^']*)?\\z)"), options);
    const QChar lineBreak = QChar::ObjectReplacementCharacter; // shows nothing by itself
    QString text = html;
    text.remove(lineBreak).remove(invisible).replace(separator, lineBreak + QStringLiteral("<")).remove(tag);
    // What is left are characters and entities.
    text.replace(QLatin1Char('<'), QLatin1String("&lt;")).replace(lineBreak, QLatin1String("<br>"));
    return QTextDocumentFragment::fromHtml(text).toPlainText().trimmed();
}
