#pragma once

#include "LineMap.h"

#include <gkBase/MatrixColumn.h>

#include <QColor>
#include <QString>

#include <memory>
#include <vector>

namespace gkBase {
class MatrixData;
class UnitRegistry;
} // namespace gkBase

namespace gkHost {

/// A strike attribute whose azimuth is not known.
inline constexpr int g_iStrikeWithoutAzimuth = -2;

/// One column of a file, not yet part of a data set.
struct ImportColumn
{
    QString m_sName;
    QString m_sUnit;     ///< as the file writes it
    QString m_sCategory; ///< unit category; empty: it follows from the unit
    QString m_sDescription;
    QColor m_oColor; ///< invalid: the next default colour
    /// Index of the azimuth column that this strike is linked to (or g_iStrikeWithoutAzimuth); −1 for a column with
    /// values of its own.
    int m_iStrikeOf = -1;
    gkBase::MatrixColumn m_oValues{QMetaType::Double};
};

/// One table of a file: columns of equal length.
struct ImportTable
{
    QString m_sName;
    std::vector<ImportColumn> m_vColumns;
    LineMap m_oLines;

    int columnCount() const { return static_cast<int>(m_vColumns.size()); }
    /// Records of the longest column.
    int rowCount() const;
    /// Index of the column of that name (exact case), −1 when there is none.
    int indexOf(const QString& sName) const;
    /// sName, made unlike the names of the columns by appending _1, _2, …
    QString uniqueName(const QString& sName) const;
};

/// The number of attributes that toDataSet() switches on for the table and the charts.
inline constexpr int g_iSelectedAttributes = 8;

/// The table as a data-set node with one attribute per column; the first eight attributes are selected. The columns
/// are moved out of the table. Units come from the registry. For the GUI thread, as all work on data sets is.
std::unique_ptr<gkBase::MatrixData> toDataSet(ImportTable&& table, const gkBase::UnitRegistry& registry);

} // namespace gkHost
