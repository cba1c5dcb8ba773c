#pragma once

#include "MatrixColumn.h"
#include "gkBaseToolsExport.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <boost/shared_ptr.hpp>

#include <optional>
#include <vector>

namespace gkBase {

class MatrixData;
class UnitManager;

/// A rectangle of cell values with their types and units, as a drag carries it.
struct GKBASETOOLS_EXPORT CellBlock
{
    struct Column
    {
        QString m_sCategory;
        QString m_sModelUnit;
        MatrixColumn m_oValues;                   ///< model values, one per row
        boost::shared_ptr<UnitManager> m_poUnits; ///< made of the two texts for a block that was read
    };

    int m_iRows = 0;
    std::vector<Column> m_vColumns;

    /// The MIME type under which cells are dragged.
    static QString mimeType();
    QByteArray toBytes() const;
    /// Nothing when the bytes are cut off, hold more or fewer cells than they say, or come from another version.
    static std::optional<CellBlock> fromBytes(const QByteArray& oBytes);

    /// The value of a cell as poTarget stores it: texts and numbers are read into its type, numbers of another unit
    /// go through the display units of both. Invalid when missing or out of range.
    QVariant valueFor(const MatrixData& oTarget, int iRow, int iColumn) const;
};

} // namespace gkBase
