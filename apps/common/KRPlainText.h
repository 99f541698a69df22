#pragma once

#include <QString>

/**
 * Texts of unknown origin, such as names out of files, made fit for windows and maps.
 *
 * Toolkits guess whether a text is markup, and obey it: a name could load any file, or wait for ever for one. Laying
 * out a text takes time in proportion to its length, which nothing bounds either.
 */
namespace KRPlainText {

constexpr int longestName = 200; ///< characters

/// Of a long text beginning and end, with "…" between them; of very many lines only the first.
QString shortened(const QString &text, int mostCharacters);

/// At most that many characters, of which the last is whole to the eye. Of a heap of marks on one letter, and of
/// invisible characters in a row, only the first few remain.
QString beginning(const QString &text, int mostCharacters);

/// One short line, for titles, menus and as a part of messages.
QString oneLine(const QString &text, int mostCharacters = longestName);

/// The last part of a path, as one short line.
QString fileName(const QString &path);

/// For QWidget::setToolTip() and its like: shows the text as it is written, shortened. Empty for an empty text.
QString toolTip(const QString &text);

/// What is to be read in HTML, with its line breaks; nothing that it refers to is loaded.
QString ofHtml(const QString &html);

} // namespace KRPlainText
