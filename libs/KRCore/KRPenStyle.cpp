#include "KRPenStyle.h"

#include <QDomDocument>
#include <QDomElement>
#include <QPen>

namespace {

const QString penStyleElement = QStringLiteral("penStyle");

} // namespace

KRPenStyle::KRPenStyle(int number)
    : // The custom style, 6, would need a pattern as well.
      m_number(number >= Qt::NoPen && number <= Qt::DashDotDotLine ? number : Qt::SolidLine)
{ }

KRPenStyle KRPenStyle::fromXml(const QDomElement &parent)
{
    bool isNumber = false;
    const int number = parent.firstChildElement(penStyleElement).text().toInt(&isNumber, 10);
    return isNumber ? KRPenStyle(number) : KRPenStyle();
}

void KRPenStyle::modifyPen(QPen &pen) const
{
    pen.setStyle(static_cast<Qt::PenStyle>(m_number));
}

void KRPenStyle::toXml(QDomElement &parent) const
{
    QDomDocument document = parent.ownerDocument();
    QDomElement child = document.createElement(penStyleElement);
    child.appendChild(document.createTextNode(QString::number(m_number)));
    parent.appendChild(child);
}
