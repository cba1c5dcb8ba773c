#pragma once

#include "gkBaseToolsExport.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

namespace gkBase {

class MatrixData;

/// A rectangle of cell values with their types and units, as a drag carries it.
struct GKBASETOOLS_EXPORT CellBlock
{
    struct Column
    {
        QMetaType::Type m_eType = QMetaType::Double;
        QString m_sCategory;
        QString m_sModelUnit;
        std::vector<QVariant> m_vqValues; ///< model values, one per row; invalid: missing
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
