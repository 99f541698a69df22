#include "KRKmlCoordinatesReader.h"

#include <KRCore/KRInputLimits.h>

#include <algorithm>

void KRKmlCoordinatesReader::read(QStringView piece)
{
    for (const QChar character : piece) {
        if (character.isSpace()) {
            // Such a document is not read.
            if (m_coordinates->isFull())
                return;
            m_isInNumber = false;
            m_hasBlank = true;
        } else if (character == QLatin1Char(',')) {
            readComma();
        } else {
            if (!m_isInNumber)
                startNumber();
            m_isInNumber = true;
            if (m_number.size() <= KRInputLimits::numberCharacters)
                m_number.append(m_number.size() < KRInputLimits::numberCharacters ? character.toLatin1() : '?');
        }
    }
}

void KRKmlCoordinatesReader::finish()
{
    if (m_hasNumber)
        settleNumber(Blank);
    emitTuple();
    *this = KRKmlCoordinatesReader(m_coordinates);
}

void KRKmlCoordinatesReader::readComma()
{
    const bool isBehindNumber = m_hasNumber && !m_hasComma;
    if (!isBehindNumber)
        startNumber(); // an empty one between two commas
    m_isInNumber = false;
    m_hasComma = true;
}

void KRKmlCoordinatesReader::startNumber()
{
    const Separator separator = !m_hasComma ? Blank : m_hasBlank ? LooseComma : Comma;
    if (m_hasNumber)
        settleNumber(separator);
    m_before = m_hasNumber ? separator : Blank;
    m_hasNumber = true;
    m_hasBlank = false;
    m_hasComma = false;
}

void KRKmlCoordinatesReader::settleNumber(Separator behind)
{
    const bool isPairComplete = m_tupleSize == 2 && behind == Comma;
    if (m_before == Blank || (m_before == LooseComma && (m_tupleSize > 2 || isPairComplete)))
        emitTuple();
    m_tuple[size_t(m_tupleSize++)] = m_number;
    m_number.clear();
    if (m_tupleSize < int(m_tuple.size()))
        return;
    // Two tuples with nothing but commas between their numbers.
    emitTuple();
    std::move(m_tuple.begin() + 3, m_tuple.end(), m_tuple.begin());
    m_tupleSize = 3;
}

void KRKmlCoordinatesReader::emitTuple()
{
    const auto number = [this](int index) {
        return index < m_tupleSize ? QLatin1String(m_tuple[size_t(index)].constData(), m_tuple[size_t(index)].size())
                                   : QLatin1String();
    };
    if (m_tupleSize > 0)
        m_coordinates->append(number(0), number(1), number(2));
    m_tupleSize = 0;
}
