#include "KRPlainText.h"

#include <KRCore/KRMessageText.h>

#include <QFileInfo>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTextDocumentFragment>

namespace {

constexpr int longestToolTip = 600; // characters
constexpr int widestPlainToolTip = 100;
constexpr int mostLines = 30;

constexpr QChar ellipsis(0x2026);

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
