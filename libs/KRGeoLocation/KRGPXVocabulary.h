#pragma once

#include <QString>

#include <cmath>

/// The element and attribute names of GPX 1.1 that tracks are read from, and those that we added to them.
namespace KRGPXVocabulary {

inline const QString trackElement = QStringLiteral("trk");
inline const QString nameElement = QStringLiteral("name");
inline const QString descriptionElement = QStringLiteral("desc"); ///< of tracks and of points
inline const QString segmentElement = QStringLiteral("trkseg");

inline const QString pointElement = QStringLiteral("trkpt");
inline const QString latitudeAttribute = QStringLiteral("lat");
inline const QString longitudeAttribute = QStringLiteral("lon");
inline const QString elevationElement = QStringLiteral("ele");
inline const QString timeElement = QStringLiteral("time");

// Ours, not in GPX.
inline const QString compressedPointsElement = QStringLiteral("compressedPoints");
inline const QString shapeElement = QStringLiteral("shape");
inline const QString enclavesElement = QStringLiteral("enclaves");
inline const QString includeElement = QStringLiteral("include");

/// Degrees that a point without a readable "lat" or "lon" gets. Intended: 1, not 0.
inline constexpr double missingCoordinate = 1.0;

/// In degrees; false for what is no number.
inline bool isOnGlobe(double latitude, double longitude)
{
    return std::abs(latitude) <= 90.0 && std::abs(longitude) <= 360.0;
}

} // namespace KRGPXVocabulary
