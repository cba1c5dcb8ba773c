#pragma once

#include "gkBaseToolsExport.h"

#include <QByteArray>
#include <QString>

namespace gkBase {

class DepthLineField;

/// The lines as the text of a scenario file: an identification line, the column titles, and a line each for X, depth,
/// type, colour, dip, azimuth and name, every item right-aligned in 30 characters. Blanks in names become "_".
GKBASETOOLS_EXPORT QByteArray depthLineFileText(const DepthLineField& oField);

/// Adds the lines of such a text to the field. The first two lines are not looked at; reading stops at an empty line;
/// lines of fewer than seven items, and of a type that is none, are skipped; a number that is none is 0.
GKBASETOOLS_EXPORT void readDepthLineFileText(const QByteArray& sText, DepthLineField& oField);

/// Replaces the file in one step: a failure leaves the old one. On failure false with file and reason in psError (may
/// be null).
GKBASETOOLS_EXPORT bool writeDepthLineFile(const DepthLineField& oField, const QString& sPath,
                                           QString* psError = nullptr);

/// Adds the lines of a file to the field. On failure false with file and reason in psError (may be null).
GKBASETOOLS_EXPORT bool readDepthLineFile(const QString& sPath, DepthLineField& oField, QString* psError = nullptr);

} // namespace gkBase
