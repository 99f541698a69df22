#pragma once

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QString>

/**
 * Route documents that tell whether they are whole.
 *
 * Each has a writer and a number; both stand in every track file, in the document itself and in what the document keeps
 * for its tracks, apart from the odd tracks, which all documents of a writer share.
 */
namespace KRNumberedRoutes {

KRGPXTrackSelection make(const QString &writer, int number);

/// "writer/number"
QString labelOf(const QString &writer, int number);

/// The label of the document that was read, or what is wrong with it, beginning with '!'.
QString whole(const KRGPXTrackSelection &selection);
/// The same for a file.
QString wholeFile(const QString &fileName);

} // namespace KRNumberedRoutes
