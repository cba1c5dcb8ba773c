#pragma once

#include "ImportReport.h"
#include "TextReading.h"
#include "TextSource.h"

#include <gkBase/MatrixColumn.h>

#include <string_view>
#include <unordered_map>
#include <vector>

namespace gkHost {

/// Builds typed columns in two passes over the same rows.
///
/// The first pass reads every cell as a number as long as the column allows it and so learns the type from all rows.
/// Only columns that turn out to hold text, flags or colours need the second pass, which takes their texts. Numbers
/// cost 8 bytes a cell and no text is made for them.
class ColumnCollector
{
public:
    /// What the caller knows about a column.
    struct Rules
    {
        char m_cDecimalMark = '.';
        bool m_bAngle = false;       ///< leading zeros belong to numbers ("045")
        bool m_bForceText = false;   ///< the file declares text
        bool m_bOnlyDoubles = false; ///< whole numbers give doubles, flags and colours stay text (well logs)
    };

    ColumnCollector(const TextSource& source, const MissingMarks& marks, std::vector<Rules> vRules, int iExpectedRows);

    int columnCount() const { return static_cast<int>(m_vColumns.size()); }
    int rowCount() const { return m_iRows; }

    // ---- first pass ---------------------------------------------------------------------------------------------
    /// The next cell of a column. sCell has no blanks around it.
    void addCell(int iColumn, std::string_view sCell, qint64 iLine);
    void addMissing(int iColumn);
    void endRow() { ++m_iRows; }

    /// Decides the types. Afterwards the second pass may begin.
    void decideTypes();
    bool needsSecondPass() const;
    bool needsText(int iColumn) const { return m_vColumns[static_cast<std::size_t>(iColumn)].m_bSecondPass; }

    // ---- second pass --------------------------------------------------------------------------------------------
    /// bStable: the bytes outlive the collector.
    void addText(int iColumn, std::string_view sCell, bool bStable);
    void addMissingText(int iColumn);

    // ---- results ------------------------------------------------------------------------------------------------
    /// The numbers of a column before takeColumn(); null for a column of another type.
    std::vector<double>* numbers(int iColumn);
    gkBase::MatrixColumn takeColumn(int iColumn);
    QString typeName(int iColumn) const;
    /// Cells read as empty because of a mark or an empty text.
    qint64 missingCount(int iColumn) const { return m_vColumns[static_cast<std::size_t>(iColumn)].m_iMissing; }
    /// Tells when a column of numbers became text, and why.
    void remarkTexts(int iColumn, const QString& sName, ImportReport& report) const;

private:
    struct Column
    {
        Rules m_oRules;
        std::vector<double> m_vdNumbers;
        QMetaType::Type m_eType = QMetaType::Double;
        bool m_bNumber = true;    ///< all cells so far are numbers or empty
        bool m_bWhole = true;     ///< … and whole ones
        bool m_bTrueFalse = true; ///< all cells so far are true, false or empty
        bool m_bYesNo = true;
        bool m_bColor = true;
        bool m_bSecondPass = false;
        bool m_bLeadingZero = false; ///< the first cell that is no number is one like "007"
        qint64 m_iMissing = 0;
        qint64 m_iNumbers = 0;  ///< cells read as numbers before the first text
        qint64 m_iTextLine = 0; ///< of the first cell that is no number
        QString m_sText;
        gkBase::MatrixColumn m_oTexts{QMetaType::QString};
        std::unordered_map<std::string_view, QString> m_mTexts; ///< texts made so far, by their bytes
    };

    void addNoNumber(Column& column, std::string_view sCell, qint64 iLine);
    void checkWords(Column& column, std::string_view sCell) const;

    const TextSource& m_oSource;
    const MissingMarks& m_oMarks;
    std::vector<Column> m_vColumns;
    int m_iExpectedRows;
    int m_iRows = 0;
};

} // namespace gkHost
