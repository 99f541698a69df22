#pragma once

#include <QStringList>

/// What is read otherwise in GPX files of other programs.
struct KRGPXReadingOptions {
    /// Points are left out whose latitude or longitude is missing, no number or beyond 90 or 360 degrees. Otherwise
    /// what is missing is 1 degree.
    bool isOnGlobeOnly = false;
    /// Of elements and attributes that are read as if they had none; without the colon.
    QStringList prefixes;
    /// Whether a DOM is asked only for what is no XML to a stream, and not for what it would merely read otherwise:
    /// carriage returns and some names.
    bool isStreamPreferred = false;
};
