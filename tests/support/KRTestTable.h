#pragma once

#include <QtTest>

#include <initializer_list>
#include <tuple>
#include <vector>

/// A column of texts, for which rows have literals in UTF-8.
class KRText : public QString
{
public:
    KRText() = default;
    // Not explicit, so that rows need no more than the text.
    KRText(const char *utf8) : QString(QString::fromUtf8(utf8)) { }
    KRText(const QString &text) : QString(text) { }
};

/**
 * Cases that stand in the test itself, with the columns of a data function but without its declarations.
 *
 * Each row begins with the name of its case. Where a whole test has to be set up anew for every row, by init(), only a
 * data function will do.
 */
template <typename... Columns>
class KRTestTable
{
public:
    using Row = std::tuple<const char *, Columns...>;

    KRTestTable(std::initializer_list<Row> rows) : m_rows(rows) { }

    /// Calls @p check with the columns of one row after the other; the first that fails is named and ends the test.
    template <typename Check>
    void forEach(const Check &check) const
    {
        for (const Row &row : m_rows) {
            std::apply([&check](const char * /*name*/, const Columns &...columns) { check(columns...); }, row);
            if (QTest::currentTestFailed()) {
                qWarning("in the row \"%s\"", std::get<0>(row));
                return;
            }
        }
    }

private:
    const std::vector<Row> m_rows;
};
