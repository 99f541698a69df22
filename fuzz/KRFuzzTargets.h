#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/**
 * The ways by which bytes of unknown origin get into the libraries.
 *
 * Each target takes any bytes, has them read, and answers which of the laws that its source names does not hold for
 * them; a null text when all of them hold. Nothing else shows: crashes, hangs and memory are left to who calls it.
 * GUI thread only, one target at a time.
 */
class KRFuzzTargets
{
public:
    using Target = QString (*)(const QByteArray &input);

    /// By name.
    static const QMap<QString, Target> &all();

    /// Files of other programs.
    static QString gpx(const QByteArray &file);
    static QString kml(const QByteArray &file);
    static QString kmz(const QByteArray &file);

    /// Our own XML.
    static QString document(const QByteArray &file);
    static QString configuration(const QByteArray &xml);

    /// Texts in UTF-8.
    static QString position(const QByteArray &text);
    static QString commaText(const QByteArray &text);

    /// What is dropped onto the list of tracks.
    static QString drop(const QByteArray &payload);
};
