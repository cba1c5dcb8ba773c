#pragma once

#include "gkBaseToolsExport.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <vector>

namespace gkBase {

class MatrixData;

/// Texts of cells and what they mean, in display units and without the locale of the process.
namespace CellText {

/// Lines and cells of pasted text: lines end at line feed, cells at tab, carriage returns are dropped, one trailing
/// empty line does not count. An empty text has no line.
GKBASETOOLS_EXPORT std::vector<QStringList> parse(const QString& sText);

/// A number with decimal point, or with one decimal comma when it reads as no number otherwise ("1,5"). Nothing for
/// any other text.
GKBASETOOLS_EXPORT std::optional<double> number(const QString& sText);

/// The model value that a text means in a column: numbers go through the display unit (0 when the text is none),
/// "true", "false", "1", "0" for bool (other numbers: not zero), "#rrggbb" or a colour name for colours, texts as they
/// stand. Invalid for an empty text and for a text that is no colour.
GKBASETOOLS_EXPORT QVariant toValue(const MatrixData& oColumn, const QString& sText);
/// Likewise for a value of any type: texts are read as above, numbers are display values.
GKBASETOOLS_EXPORT QVariant toValue(const MatrixData& oColumn, const QVariant& qValue);

/// As the table shows it: fixed with the unit's precision.
GKBASETOOLS_EXPORT QString shown(const MatrixData& oColumn, const QVariant& qModelValue);
/// As an editor shows it: 6 significant digits.
GKBASETOOLS_EXPORT QString edited(const MatrixData& oColumn, const QVariant& qModelValue);
/// As copies carry it: every digit, colours as "#rrggbb", bools as "true" and "false".
GKBASETOOLS_EXPORT QString exact(const MatrixData& oColumn, const QVariant& qModelValue);

} // namespace CellText
} // namespace gkBase
