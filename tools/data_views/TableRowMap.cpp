#include "TableRowMap.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstddef>

namespace gkBase {

int TableRowMap::sheetRow(int iTableRow) const
{
    if (m_viSheetRows.empty()) {
        if (m_iStep < 0)
            return iTableRow;
        return iTableRow <= 0 ? m_iRowOffSet : iTableRow * m_iStep + m_iRowOffSet - 1;
    }
    const qint64 iEntry = m_iStep < 0 ? iTableRow : qint64(iTableRow) * m_iStep;
    if (iEntry >= 0 && iEntry < static_cast<qint64>(m_viSheetRows.size()))
        return m_viSheetRows[static_cast<std::size_t>(iEntry)];
    return m_viSheetRows.back();
}

QString TableRowMap::label(int iTableRow) const
{
    if (m_iStep < 0) {
        switch (iTableRow) {
        case 0:
            return QCoreApplication::translate("QVertexItemModel", "Minimum");
        case 1:
            return QCoreApplication::translate("QVertexItemModel", "Mean");
        case 2:
            return QCoreApplication::translate("QVertexItemModel", "Maximum");
        default:
            // The rows of a list are numbered through as well.
            return QString::number(iTableRow - m_iRowOffSet + 1);
        }
    }
    if (m_viSheetRows.empty())
        return QString::number(iTableRow == 0 ? 1 : iTableRow * m_iStep);
    const auto iSize = static_cast<qint64>(m_viSheetRows.size());
    const qint64 iEntry = qint64(iTableRow) * m_iStep;
    if (iEntry < iSize)
        return QString::number(m_viSheetRows[static_cast<std::size_t>(iEntry)] + 1 - m_iRowOffSet);
    // Past the end the label counts on by one step from the entry before.
    const qint64 iBefore = std::min(iEntry - m_iStep, iSize - 1);
    return QString::number(m_viSheetRows[static_cast<std::size_t>(iBefore)] + m_iStep + 1 - m_iRowOffSet);
}

RowRuns TableRowMap::tableRowsOfRecords(const bool* pbFlags, int iCount, int iRowCount) const
{
    if (!pbFlags)
        return {};
    if (isPlain())
        return runsOfFlags(pbFlags, std::min(iCount, iRowCount - m_iRowOffSet), m_iRowOffSet);
    RowRuns vRuns;
    for (int iRow = 0; iRow < iRowCount; ++iRow) {
        const int iRecord = sheetRow(iRow) - m_iRowOffSet;
        if (iRecord < 0 || iRecord >= iCount || !pbFlags[iRecord])
            continue;
        if (!vRuns.empty() && vRuns.back().iLast == iRow - 1)
            vRuns.back().iLast = iRow;
        else
            vRuns.push_back({iRow, iRow});
    }
    return vRuns;
}

std::vector<int> TableRowMap::recordsOfTableRows(const RowRuns& vTableRows) const
{
    std::vector<int> viRecords;
    viRecords.reserve(static_cast<std::size_t>(countOfRuns(vTableRows)));
    for (const RowRun& oRun : vTableRows) {
        for (int iRow = oRun.iFirst; iRow <= oRun.iLast; ++iRow) {
            const int iRecord = sheetRow(iRow) - m_iRowOffSet;
            if (iRecord >= 0)
                viRecords.push_back(iRecord);
        }
    }
    if (!isPlain()) {
        std::sort(viRecords.begin(), viRecords.end());
        viRecords.erase(std::unique(viRecords.begin(), viRecords.end()), viRecords.end());
    }
    return viRecords;
}

int TableRowMap::firstDataRow(int iRowCount) const
{
    int iRow = 0;
    while (iRow < iRowCount && sheetRow(iRow) < m_iRowOffSet)
        ++iRow;
    return iRow;
}

} // namespace gkBase
