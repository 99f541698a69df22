#include "KRXmlStream.h"

#include "KRQuietFiles.h"
#include "KRTest.h"
#include "KRTestXml.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRQtCompat.h>

namespace {

/// "name@line(text)" of every child of the document element, with blanks between them.
QString childrenOf(const QByteArray &xml, KRErrorHistory *history = nullptr)
{
    QStringList found;
    const bool isRead = KRXmlStream::read(xml, QStringLiteral("test.xml"), history, [&found](KRXmlStream &stream) {
        found.clear();
        while (stream.readNextChild()) {
            const QString name = stream.name().toString();
            const int line = stream.line();
            found.append(QStringLiteral("%1@%2(%3)").arg(name, QString::number(line), stream.readText()));
        }
    });
    return isRead ? found.join(QLatin1Char(' ')) : QStringLiteral("unreadable");
}

QByteArray nested(int levels)
{
    return QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

QByteArray withAttributes(int count)
{
    QByteArray xml = "<a><b";
    for (int i = 0; i < count; ++i)
        xml += " n" + QByteArray::number(i) + "='1'";
    return xml + "/></a>";
}

} // namespace

class tst_KRXmlStream : public QObject
{
    Q_OBJECT

private slots:
    void reads()
    {
        const QString unreadable = QStringLiteral("unreadable");
        const auto broken = [&](const QString &text) { return KRQtCompat::domReadsBrokenXml ? text : unreadable; };
        const KRTestTable<QByteArray, KRText> table{
            {"lines and nested text", "<a>\n<b>x<c>y</c>z</b>\n<d/>\n</a>", "b@2(xyz) d@3()"},
            {"prefixes, declared or not", "<k:a xmlns:k='u'><k:b>1</k:b><gx:c>2</gx:c></k:a>", "b@1(1) c@1(2)"},
            {"Latin-1 as declared", "<?xml version='1.0' encoding='ISO-8859-1'?><a><b>\xFC</b></a>", "b@1(ü)"},
            {"UTF-16 declared, is UTF-8", "<?xml version='1.0' encoding='UTF-16'?><a><b>\xC3\xBC</b></a>", "b@1(ü)"},
            // From here on the DOM helps, and lines are not known.
            {"declared entity", "<!DOCTYPE a [<!ENTITY e 'E'>]><a><b>&e;</b></a>", "b@0(E)"},
            {"undeclared entity", "<a>\n<b>x&nbsp;y</b></a>", broken(QStringLiteral("b@0(xy)"))},
            {"control character", "<a><b>x\x01y</b></a>", broken(QStringLiteral("b@0(xy)"))},
            {"undeclared entity in UTF-16", KRTestXml::utf16(QStringLiteral("<a><b>x&nbsp;y</b></a>")),
             broken(QStringLiteral("b@0(xy)"))},
            {"256 levels", nested(256), "a@1()"},
            {"thousand of them, read by the DOM", "<!DOCTYPE r><r>" + withAttributes(1000) + "</r>", "a@0()"},
        };
        table.forEach([&](const QByteArray &xml, const QString &expected) {
            KRErrorHistory history;
            QCOMPARE(childrenOf(xml, &history), expected);
            QCOMPARE(history.isEmpty(), expected != unreadable);
        });
    }

    void refuses()
    {
        const KRTestTable<QByteArray> table{
            {"fault behind all that is read", "<a><b>1</b></a><"},
            {"text before the declaration", "a<?xml version='1.0'?><a/>"},
            {"too deep", nested(257)},
            // The first blocks count for what stands before.
            {"references in one tag",
             "<a b='" + QByteArray("&lt;").repeated(KRInputLimits::references + 40000) + "'/>"},
            {"entities without end", QByteArray("<!DOCTYPE a [<!ENTITY e '" + QByteArray(4000, 'x') + "'>]><a><b>"
                                                + QByteArray("&e;").repeated(20000) + "</b></a>")},
            {"more attributes than can be compared", withAttributes(50000)},
            {"the same in what the DOM has read", QByteArray("<a>&nbsp;" + withAttributes(50000) + "</a>")},
        };
        table.forEach([](const QByteArray &xml) {
            KRErrorHistory history;
            QCOMPARE(childrenOf(xml, &history), QStringLiteral("unreadable"));
            QCOMPARE(history.entries().size(), 1);
            QCOMPARE(history.entries().first().fileName, QStringLiteral("test.xml"));
            QVERIFY(!history.entries().first().reason.isEmpty());
        });
    }

private:
    const KRQuietFiles m_quiet;
};

template class KRTestRegistration<tst_KRXmlStream>;

#include "tst_KRXmlStream.moc"
