#include "CsvDialect.h"

#include "DelimitedScanner.h"
#include "UnitWords.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <vector>

namespace gkHost {

namespace {

constexpr int g_iSampleRows = 120;
using Row = std::vector<std::string>;

/// The first rows that are no empty lines and no comments; a row cut off by an open quote is left out.
std::vector<Row> sampleRows(std::string_view sBytes, char cDelimiter)
{
    DelimitedScanner scanner(sBytes, cDelimiter);
    std::vector<RawCell> vCells;
    std::vector<Row> vRows;
    while (vRows.size() < g_iSampleRows && scanner.nextRow(vCells)) {
        if (trimmed(scanner.rowText()).empty()) {
            continue;
        }
        Row& row = vRows.emplace_back();
        for (const RawCell& cell : vCells) {
            row.emplace_back(trimmed(cell.m_sText));
        }
    }
    return vRows;
}

bool isNumber(std::string_view sCell, char cDecimalMark)
{
    double dValue = 0;
    return parseNumber(sCell, cDecimalMark, dValue) != NumberKind::None;
}

int usualCellCount(const std::vector<Row>& vRows)
{
    std::map<int, int> mCounts;
    for (const Row& row : vRows) {
        ++mCounts[static_cast<int>(row.size())];
    }
    const auto it = std::max_element(mCounts.begin(), mCounts.end(),
                                     [](const auto& a, const auto& b) { return a.second < b.second; });
    return it == mCounts.end() ? 1 : it->first;
}

/// Share of the rows that have the usual number of cells, plus half the share of numbers among their cells.
double delimiterScore(const std::vector<Row>& vRows, char cDelimiter, const ImportOptions& options)
{
    const int iUsual = usualCellCount(vRows);
    if (iUsual < 2) {
        return 0;
    }
    double dRegular = 0;
    double dCells = 0;
    double dNumbers = 0;
    for (const Row& row : vRows) {
        if (static_cast<int>(row.size()) != iUsual) {
            continue;
        }
        ++dRegular;
        dCells += iUsual;
        dNumbers += static_cast<double>(std::count_if(row.begin(), row.end(), [&](const std::string& sCell) {
            const bool bPoint = options.m_oDecimalMark.value_or('.') == '.';
            const bool bComma = cDelimiter != ',' && options.m_oDecimalMark.value_or(',') == ',';
            return (bPoint && isNumber(sCell, '.')) || (bComma && isNumber(sCell, ','));
        }));
    }
    // Blanks stand in texts as well: they part cells only where about every row has a number.
    if (cDelimiter == ' ' && (dNumbers < 0.5 * dRegular || 2 * dRegular < static_cast<double>(vRows.size()))) {
        return 0;
    }
    return dRegular / static_cast<double>(vRows.size()) + 0.5 * dNumbers / dCells;
}

char detectDelimiter(std::string_view sBytes, const ImportOptions& options)
{
    constexpr std::array vcCandidates = {'\t', ';', '|', ',', ' '};
    char cBest = ',';
    double dBest = 0;
    for (const char cDelimiter : vcCandidates) {
        const double dScore = delimiterScore(sampleRows(sBytes, cDelimiter), cDelimiter, options);
        if (dScore > dBest + 1e-9) {
            dBest = dScore;
            cBest = cDelimiter;
        }
    }
    return cBest;
}

/// Numbers that only one of the marks can read, in the rows around some places of the file.
char detectDecimalMark(std::string_view sBytes, char cDelimiter)
{
    constexpr std::size_t iPlaces = 16;
    constexpr std::size_t iPlaceBytes = 8192;
    int iPoints = 0;
    int iCommas = 0;
    for (std::size_t i = 0; i < iPlaces; ++i) {
        std::size_t iStart = sBytes.size() / iPlaces * i;
        if (iStart > 0) {
            iStart = sBytes.find_first_of("\r\n", iStart);
        }
        if (iStart == std::string_view::npos) {
            break;
        }
        for (const Row& row : sampleRows(sBytes.substr(iStart, iPlaceBytes), cDelimiter)) {
            for (const std::string& sCell : row) {
                iPoints += sCell.find('.') != std::string::npos && isNumber(sCell, '.') ? 1 : 0;
                iCommas += sCell.find(',') != std::string::npos && isNumber(sCell, ',') ? 1 : 0;
            }
        }
    }
    return iCommas > iPoints ? ',' : '.';
}

bool isHeaderRow(const Row& row, char cDecimalMark, const MissingMarks& marks)
{
    bool bWord = false;
    for (const std::string& sCell : row) {
        if (isNumber(sCell, cDecimalMark) || isColorText(sCell)) {
            return false;
        }
        bWord = bWord || !marks.isMissingNumber(sCell);
    }
    return bWord;
}

/// Every cell a unit, in brackets or none, and at least one of them known.
bool isUnitsRow(const Row& row)
{
    bool bKnown = false;
    for (const std::string& sCell : row) {
        const QString sText = QString::fromStdString(sCell);
        const QString sUnit = bareUnit(sText);
        const bool bBracketed = sText.startsWith(u'[') && sText.endsWith(u']');
        if (!sUnit.isEmpty() && !isUnitWord(sUnit) && !bBracketed) {
            return false;
        }
        bKnown = bKnown || !sUnit.isEmpty();
    }
    return bKnown;
}

} // namespace

CsvDialect detectDialect(std::string_view sBytes, const ImportOptions& options, const MissingMarks& marks)
{
    CsvDialect dialect;
    dialect.m_cDelimiter = options.m_oDelimiter ? *options.m_oDelimiter : detectDelimiter(sBytes, options);
    dialect.m_cDecimalMark =
        options.m_oDecimalMark ? *options.m_oDecimalMark : detectDecimalMark(sBytes, dialect.m_cDelimiter);
    const std::vector<Row> vRows = sampleRows(sBytes, dialect.m_cDelimiter);
    if (vRows.empty()) {
        return dialect;
    }
    dialect.m_iColumns = usualCellCount(vRows);
    dialect.m_bHeaderLine =
        options.m_oHeaderLine ? *options.m_oHeaderLine : isHeaderRow(vRows[0], dialect.m_cDecimalMark, marks);
    // Units above text only would be data: they are believed only above a row that holds a number.
    const bool bNumbersBelow = vRows.size() > 2 && !isHeaderRow(vRows[2], dialect.m_cDecimalMark, marks);
    dialect.m_bUnitsLine = options.m_oUnitsLine ? *options.m_oUnitsLine && vRows.size() > 1
                                                : dialect.m_bHeaderLine && bNumbersBelow && isUnitsRow(vRows[1]);
    return dialect;
}

} // namespace gkHost
