#pragma once

#include <QString>

#include <optional>

class KRXmlStream;

/**
 * What a KML "Style" says about lines, areas and points. What it leaves open is not set.
 *
 * Colours and widths are kept as the texts that the file has, without blanks around them.
 */
class KRKmlStyle
{
public:
    /// The kinds of geometries that a style is read differently for.
    enum Use : int {
        UseForPoint = 0,
        UseForLine = 1,
        UseForClosedLine = 2, ///< a line that ends where it begins
        UseForArea = 3,
    };

    /// Reads the children of a "Style" at which the stream stands.
    static KRKmlStyle read(KRXmlStream &stream);

    bool saysNothing() const;
    /// Takes over everything that @p style says.
    void override(const KRKmlStyle &style);

    /// The children of the "Style" that gives the importer this look; line by line what it would read from the file
    /// where that is as good.
    QString toXml(Use use) const;

private:
    void readLineStyle(KRXmlStream &stream);
    void readPolyStyle(KRXmlStream &stream);
    void readIconStyle(KRXmlStream &stream);

    bool m_hasLineStyle = false;
    bool m_hasPolyStyle = false;
    std::optional<QString> m_lineColor;
    std::optional<QString> m_lineWidth;
    std::optional<QString> m_polyColor;
    std::optional<QString> m_iconColor;
    std::optional<bool> m_isFilled;
    std::optional<bool> m_isOutlined;
};
