#pragma once

#include "gkBaseToolsExport.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace gkBase {

class DepthLineField;

/// The lines as the text of a scenario file, in UTF-8 with "\n" at the end of lines: an identification line, the column
/// titles, and a line each for X, depth, type, colour, dip, azimuth and name. Every item, the end of the line too, is
/// right-aligned in 30 characters; a longer one is written whole. Numbers have 6 significant digits, a colour that is
/// none is black, and white space of any kind in a name is "_".
GKBASETOOLS_EXPORT QByteArray depthLineFileText(const DepthLineField& oField);

/// Adds the lines of such a text to the field. The first two lines are not looked at, and reading stops at an empty
/// line. Skipped are lines of too few items, without white space at the start, of a type outside 0 to 4 and without a
/// depth (99999, NaN, infinity). A number that cannot be read is 0. Texts that are not UTF-8 are read as Latin-1.
GKBASETOOLS_EXPORT void readDepthLineFileText(const QByteArray& sText, DepthLineField& oField);

/// The names of lines that would not come back from a file as they are written: those so long that they run into the
/// azimuth before them, and those of types that scenarios do not have.
GKBASETOOLS_EXPORT QStringList depthLineNamesNotReadBack(const DepthLineField& oField);

/// Replaces the file in one step: a failure leaves the old one as it was. A symbolic link stays, and the permissions of
/// the file too. On failure false with file and reason in psError (may be null).
GKBASETOOLS_EXPORT bool writeDepthLineFile(const DepthLineField& oField, const QString& sPath,
                                           QString* psError = nullptr);

/// Adds the lines of a file to the field; line ends may be "\r\n". On failure false with file and reason in psError
/// (may be null).
GKBASETOOLS_EXPORT bool readDepthLineFile(const QString& sPath, DepthLineField& oField, QString* psError = nullptr);

} // namespace gkBase
