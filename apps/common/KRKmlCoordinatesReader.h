#pragma once

#include "KRKmlCoordinates.h"

#include <QVarLengthArray>

#include <array>

/**
 * Reads the text of a KML "coordinates" element: tuples "longitude,latitude[,elevation]", separated by blanks.
 *
 * Blanks and line breaks next to a comma do not end a tuple ("8.2, 53.1,4") unless it is complete: with three numbers,
 * or with two if a pair without blanks follows ("8,53, 9,54"). Numbers beyond the third are dropped; six or more
 * without any blank are tuples of three. The text may come in pieces.
 */
class KRKmlCoordinatesReader
{
public:
    /// Appends to @p coordinates, which stay with the caller.
    explicit KRKmlCoordinatesReader(KRKmlCoordinates *coordinates) : m_coordinates(coordinates) { }

    void read(QStringView piece);
    /// To be called behind the last piece.
    void finish();

private:
    /// What stands between two numbers.
    enum Separator : int {
        Blank = 0,
        Comma = 1,
        LooseComma = 2, ///< with blanks next to it
    };
    using Number = QVarLengthArray<char, 32>;

    void readComma();
    void startNumber();
    void settleNumber(Separator behind);
    void emitTuple();

    KRKmlCoordinates *m_coordinates;
    std::array<Number, 6> m_tuple; // the numbers whose place in the tuple is settled
    int m_tupleSize = 0;
    // The last number, which waits until it is known what stands behind it.
    Number m_number;
    bool m_hasNumber = false;
    bool m_isInNumber = false;
    Separator m_before = Blank;
    // What has been read behind it.
    bool m_hasBlank = false;
    bool m_hasComma = false;
};
