#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QImageReader>
#include <QLibraryInfo>
#include <QList>
#include <QPainter>
#include <QPointF>
#include <QString>
#include <QTextStream>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#else
#include <QEventPoint>
#include <QStringConverter>
#endif

#include <optional>

/**
 * What has to be said differently to Qt 5.15 and to Qt 6; everything else is written so that both take it.
 *
 * The versions read XML with different parsers: what they make of the rules of XML is told by the first two constants.
 */
namespace KRQtCompat {

/// Qt 5's DOM keeps the lower 16 bits of a reference like "&#x1F600;", which makes another character of it.
inline constexpr bool domCutsReferences = QT_VERSION < QT_VERSION_CHECK(6, 0, 0);

/// Qt 5's DOM reads much that breaks the rules of XML, such as an attribute twice or bytes that are no UTF-8.
inline constexpr bool domReadsBrokenXml = QT_VERSION < QT_VERSION_CHECK(6, 0, 0);

/// On images Qt 6 has dashes begin elsewhere when a part of the line is out of sight.
inline constexpr bool painterMovesDashes = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);

/// Where Qt keeps translations of its own texts.
inline QString translationsFolder()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
}

/// To be called before the application is made. Qt 6 knows nothing else.
inline void enableHighDpi()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

/// Lets pictures of so many pixels be read. All readers of Qt 6 share a limit, of 128 MB unless told otherwise.
inline void allowPictures(qint64 pixels)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    Q_UNUSED(pixels)
#else
    // Channels of 16 bits take eight bytes a pixel.
    const int megabytes = int(pixels * 8 / (1024 * 1024)) + 1;
    QImageReader::setAllocationLimit(qMax(megabytes, QImageReader::allocationLimit()));
#endif
}

/// The best that the version offers.
inline QPainter::RenderHints antialiasing()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return QPainter::Antialiasing | QPainter::HighQualityAntialiasing;
    QT_WARNING_POP
#else
    return QPainter::Antialiasing;
#endif
}

/// Where in the widget a mouse or gesture event happens.
template <typename Event>
QPointF position(const Event *event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event->localPos();
#else
    return event->position();
#endif
}

/// Where in the widget something is being dragged or dropped.
template <typename DropEvent>
QPoint dropPosition(const DropEvent *event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event->pos();
#else
    return event->position().toPoint();
#endif
}

/// A finger and where in the widget it is. Where it was is to be remembered: Qt 6 tells of one that rests or is lifted
/// where its last movement began.
struct Touch {
    int id;
    bool isNew; // just put down
    QPointF position;
};

template <typename TouchEvent>
QList<Touch> touches(const TouchEvent *event)
{
    QList<Touch> touches;
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    for (const auto &point : event->touchPoints())
        touches.append({point.id(), point.state() == Qt::TouchPointPressed, point.pos()});
#else
    for (const auto &point : event->points())
        touches.append({point.id(), point.state() == QEventPoint::Pressed, point.position()});
#endif
    return touches;
}

/// Qt 6 reads and writes UTF-8 unless told otherwise.
inline void useUtf8(QTextStream *stream)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    stream->setCodec("UTF-8");
#else
    stream->setEncoding(QStringConverter::Utf8);
#endif
}

/// The text of XML in UTF-16 or UTF-32, with a byte-order mark or, in UTF-16, without one; none for any other.
inline std::optional<QString> wideXmlText(const QByteArray &xml)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QTextCodec *codec = QTextCodec::codecForUtfText(xml, nullptr);
    if (xml.startsWith(QByteArray("<\0", 2)))
        codec = QTextCodec::codecForName("UTF-16LE");
    else if (xml.startsWith(QByteArray("\0<", 2)))
        codec = QTextCodec::codecForName("UTF-16BE");
    if (!codec || codec->name() == "UTF-8")
        return std::nullopt;
    return codec->toUnicode(xml);
#else
    const auto encoding = QStringConverter::encodingForData(xml, u'<');
    if (!encoding || *encoding == QStringConverter::Utf8)
        return std::nullopt;
    QStringDecoder decoder(*encoding);
    return QString(decoder(xml));
#endif
}

} // namespace KRQtCompat
