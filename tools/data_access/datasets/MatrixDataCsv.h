#pragma once

#include "gkBaseQtExport.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>

#include <boost/shared_ptr.hpp>

#include <optional>

namespace gkBase {

class MatrixData;
class UnitManager;
class UnitRegistry;

/// The words of the comma-separated form of data sets that writer and reader share; docs/csv-format.md describes the
/// form as a whole.
namespace MatrixDataCsv {

inline constexpr char acDataSetPrefix[] = "# data set: ";
inline constexpr char acTypesPrefix[] = "# types: ";

/// A column as its header cell and its word in the types line describe it.
struct Header
{
    QString sName;
    QString sUnit;     ///< as written; empty for none
    QString sCategory; ///< only where the header names it; empty: it follows from name and unit
};

/// "name", "name [unit]" or "name [unit|category]", the shortest that Header and headerUnit() read back.
GKBASEQT_EXPORT QString headerText(const QString& sName, const UnitManager& unit);
GKBASEQT_EXPORT Header parseHeader(const QString& sText);
/// The unit manager that a parsed header names. Never null.
GKBASEQT_EXPORT boost::shared_ptr<UnitManager> headerUnit(const Header& header, const UnitRegistry& registry);

/// "double", "int", "bool", "text", "color".
GKBASEQT_EXPORT QByteArray typeWord(QMetaType::Type eType);

struct ColumnType
{
    QMetaType::Type eType = QMetaType::Double;
    bool bStrike = false;
    int iAzimuthColumn = -1; ///< of a strike: the column of its azimuth, from 0; −1 when the block does not hold it
};
/// Reads a word of the types line: typeWord(), "strike" or "strike:3" (the azimuth is the third column).
GKBASEQT_EXPORT std::optional<ColumnType> parseTypeWord(const QByteArray& sWord);

/// A data set's name on one line: backslash, line feed and carriage return as \\, \n and \r.
GKBASEQT_EXPORT QByteArray escapedName(const QString& sName);
GKBASEQT_EXPORT QString unescapedName(const QByteArray& sText);

} // namespace MatrixDataCsv

} // namespace gkBase
