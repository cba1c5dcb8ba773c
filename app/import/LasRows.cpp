#include "LasRows.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <map>

namespace gkHost {

namespace {

constexpr int g_iSampleLines = 60;

QString tr(const char* pcText)
{
    return QCoreApplication::translate("LasImporter", pcText);
}

bool isNumber(std::string_view sCell)
{
    double dValue = 0;
    return parseNumber(sCell, '.', dValue) != NumberKind::None || parseNumber(sCell, ',', dValue) != NumberKind::None;
}

bool isDataLine(std::string_view sLine)
{
    const std::size_t i = sLine.find_first_not_of(" \t\x1a");
    return i != std::string_view::npos && sLine[i] != '#';
}

std::vector<std::string_view> sampleLines(const LasSection& section)
{
    std::vector<std::string_view> vLines;
    LineReader reader(section.m_sBody, 1);
    std::string_view sLine;
    while (vLines.size() < g_iSampleLines && reader.next(sLine)) {
        if (isDataLine(sLine)) {
            vLines.push_back(sLine);
        }
    }
    return vLines;
}

std::vector<int> cellCounts(const std::vector<std::string_view>& vLines, char cDelimiter)
{
    std::vector<int> viCounts;
    std::vector<std::string_view> vCells;
    for (const std::string_view sLine : vLines) {
        splitLasLine(sLine, cDelimiter, vCells);
        viCounts.push_back(static_cast<int>(vCells.size()));
    }
    return viCounts;
}

int usualCount(const std::vector<int>& viCounts)
{
    std::map<int, int> mCounts;
    for (const int iCount : viCounts) {
        ++mCounts[iCount];
    }
    const auto it = std::max_element(mCounts.begin(), mCounts.end(),
                                     [](const auto& a, const auto& b) { return a.second < b.second; });
    return it == mCounts.end() ? 0 : it->first;
}

/// The delimiter that gives the most lines as many cells as there are curves; the declared one when it is as good.
char detectDelimiter(const std::vector<std::string_view>& vLines, int iCurves, char cDeclared)
{
    const std::array vcCandidates = {cDeclared != 0 ? cDeclared : ' ', ' ', ',', '\t', ';'};
    char cBest = 0;
    std::ptrdiff_t iBest = 0;
    for (const char cDelimiter : vcCandidates) {
        const std::vector<int> viCounts = cellCounts(vLines, cDelimiter);
        const auto iFitting = std::count(viCounts.begin(), viCounts.end(), iCurves);
        if (iFitting > iBest && (iCurves > 1 || cBest == 0)) {
            iBest = iFitting;
            cBest = cDelimiter;
        }
    }
    if (2 * iBest > static_cast<std::ptrdiff_t>(vLines.size())) {
        return cBest;
    }
    // None gives the number of curves: a declared one counts when it parts the lines at all.
    if (cDeclared != 0 && usualCount(cellCounts(vLines, cDeclared)) > 1) {
        return cDeclared;
    }
    std::vector<std::string_view> vCells;
    if (!vLines.empty()) {
        splitLasLine(vLines.front(), ' ', vCells);
        if (vCells.front().back() == ',') {
            return ',';
        }
    }
    return ' ';
}

/// A depth alone on its line, followed by lines that fill the record exactly, twice if there is a second record.
bool looksWrapped(const std::vector<int>& viCounts, int iCurves)
{
    std::size_t i = 0;
    for (int iRecord = 0; iRecord < 2 && i < viCounts.size(); ++iRecord) {
        if (viCounts[i] != 1) {
            return false;
        }
        int iCells = 0;
        while (i < viCounts.size() && iCells < iCurves) {
            iCells += viCounts[i++];
        }
        if (iCells != iCurves) {
            return false;
        }
    }
    return true;
}

char detectDecimalMark(const std::vector<std::string_view>& vLines, char cDelimiter)
{
    int iPoints = 0;
    int iCommas = 0;
    std::vector<std::string_view> vCells;
    for (const std::string_view sLine : vLines) {
        splitLasLine(sLine, cDelimiter, vCells);
        for (const std::string_view sCell : vCells) {
            double dValue = 0;
            iPoints += sCell.find('.') != std::string_view::npos && parseNumber(sCell, '.', dValue) != NumberKind::None;
            iCommas += sCell.find(',') != std::string_view::npos && parseNumber(sCell, ',', dValue) != NumberKind::None;
        }
    }
    return iCommas > iPoints ? ',' : '.';
}

/// The end of the cell at the front of sText, with its quotes.
std::size_t blankCellEnd(std::string_view sText)
{
    if (sText.front() == '"' || sText.front() == '\'') {
        const std::size_t iClose = sText.find(sText.front(), 1);
        if (iClose != std::string_view::npos) {
            return iClose + 1;
        }
    }
    return static_cast<std::size_t>(std::find_if(sText.begin(), sText.end(), isBlank) - sText.begin());
}

} // namespace

void splitLasLine(std::string_view sLine, char cDelimiter, std::vector<std::string_view>& vCells)
{
    vCells.clear();
    if (cDelimiter == ' ') {
        for (std::size_t i = sLine.find_first_not_of(" \t"); i != std::string_view::npos;) {
            const std::size_t iEnd = i + blankCellEnd(sLine.substr(i));
            vCells.push_back(sLine.substr(i, iEnd - i));
            i = sLine.find_first_not_of(" \t", iEnd);
        }
        return;
    }
    std::size_t iStart = 0;
    while (true) {
        const std::size_t iText = sLine.find_first_not_of(' ', iStart);
        std::size_t iSearch = iStart;
        if (iText != std::string_view::npos && sLine[iText] == '"') {
            const std::size_t iClose = sLine.find('"', iText + 1);
            iSearch = iClose == std::string_view::npos ? iStart : iClose;
        }
        const std::size_t iEnd = sLine.find(cDelimiter, iSearch);
        vCells.push_back(trimmed(sLine.substr(iStart, iEnd == std::string_view::npos ? iEnd : iEnd - iStart)));
        if (iEnd == std::string_view::npos) {
            return;
        }
        iStart = iEnd + 1;
    }
}

LasDataForm detectLasForm(const LasSection& section, int iCurves, char cDeclared, bool bWrapped,
                          const ImportOptions& options)
{
    const std::vector<std::string_view> vLines = sampleLines(section);
    LasDataForm form;
    form.m_cDelimiter = options.m_oDelimiter ? *options.m_oDelimiter
                        : bWrapped           ? (cDeclared != 0 ? cDeclared : ' ')
                                             : detectDelimiter(vLines, iCurves, cDeclared);
    form.m_cDecimalMark = options.m_oDecimalMark     ? *options.m_oDecimalMark
                          : form.m_cDelimiter == ',' ? '.'
                                                     : detectDecimalMark(vLines, form.m_cDelimiter);
    const std::vector<int> viCounts = cellCounts(vLines, form.m_cDelimiter);
    form.m_iUsualCells = usualCount(viCounts);
    form.m_bWrapped = iCurves > 1 && (bWrapped || looksWrapped(viCounts, iCurves));
    const bool bMore = !form.m_bWrapped && form.m_iUsualCells > iCurves;
    form.m_iColumns = bMore ? form.m_iUsualCells : iCurves;
    return form;
}

LasRows::LasRows(const LasSection& section, const LasDataForm& form, ImportReport* pReport)
    : m_oForm(form)
    , m_oLines(section.m_sBody, section.m_iLine + 1)
    , m_pReport(pReport)
{
    const std::vector<std::string_view> vLines = sampleLines(section);
    const auto iWithNumbers = std::count_if(vLines.begin(), vLines.end(), [this](std::string_view sLine) {
        splitLasLine(sLine, m_oForm.m_cDelimiter, m_vTokens);
        return std::any_of(m_vTokens.begin(), m_vTokens.end(), isNumber);
    });
    m_bNumbers = 2 * iWithNumbers > static_cast<std::ptrdiff_t>(vLines.size());
    learnColumns(vLines);
}

void LasRows::tellRepair(const QString& sText)
{
    if (m_pReport) {
        m_pReport->addRepair(m_iRecordLine, sText);
    }
}

void LasRows::tellRejected(const QString& sText)
{
    if (m_pReport) {
        m_pReport->addRejectedRow(m_iRecordLine, sText);
    }
}

bool LasRows::nextLine()
{
    while (m_oLines.next(m_sLine)) {
        if (isDataLine(m_sLine)) {
            splitLasLine(m_sLine, m_oForm.m_cDelimiter, m_vTokens);
            return true;
        }
    }
    return false;
}

bool LasRows::next(std::vector<std::string_view>& vCells)
{
    if (m_oForm.m_bWrapped) {
        return nextWrapped(vCells);
    }
    while (nextLine()) {
        m_iRecordLine = m_oLines.line();
        vCells = m_vTokens;
        if (fitLine(vCells)) {
            return true;
        }
    }
    return false;
}

bool LasRows::nextWrapped(std::vector<std::string_view>& vCells)
{
    const auto iColumns = static_cast<std::size_t>(m_oForm.m_iColumns);
    std::size_t iLastTokens = 0;
    vCells.clear();
    while (m_bPending || nextLine()) {
        // Below lines of several values, a single one far from the end of its record is the depth of the next one.
        if (!m_bPending && iLastTokens > 1 && m_vTokens.size() == 1 && vCells.size() + 1 != iColumns) {
            m_bPending = true;
            break;
        }
        m_bPending = false;
        iLastTokens = m_vTokens.size();
        if (vCells.empty()) {
            m_iRecordLine = m_oLines.line();
        }
        vCells.insert(vCells.end(), m_vTokens.begin(), m_vTokens.end());
        if (vCells.size() == iColumns) {
            return true;
        }
        if (vCells.size() > iColumns) {
            tellRejected(tr("%1 values for %2 curves.").arg(vCells.size()).arg(iColumns));
            vCells.clear();
            iLastTokens = 0;
        }
    }
    if (vCells.empty()) {
        return false;
    }
    tellRepair(tr("%1 of %2 values; the others are empty.").arg(vCells.size()).arg(iColumns));
    vCells.resize(iColumns);
    return true;
}

bool LasRows::fitLine(std::vector<std::string_view>& vCells)
{
    const auto iColumns = static_cast<std::size_t>(m_oForm.m_iColumns);
    const std::size_t iCells = vCells.size();
    if (m_bNumbers && std::none_of(vCells.begin(), vCells.end(), isNumber)) {
        tellRejected(tr("no values."));
        return false;
    }
    if (iCells == iColumns) {
        return true;
    }
    if (iCells > iColumns) {
        tellRejected(tr("%1 values for %2 curves.").arg(iCells).arg(iColumns));
        return false;
    }
    if (splitAtColumns(vCells) || splitAtSigns(vCells)) {
        tellRepair(tr("Numbers that ran together were parted."));
    } else if (placeAtColumns(vCells)) {
        tellRepair(tr("%1 of %2 values, placed by their position on the line.").arg(iCells).arg(iColumns));
    } else {
        if (static_cast<int>(iCells) != m_oForm.m_iUsualCells) {
            tellRepair(tr("%1 of %2 values; the others are empty.").arg(iCells).arg(iColumns));
        }
        vCells.resize(iColumns);
    }
    return true;
}

/// Where the columns end, when all full lines of the sample agree on it.
void LasRows::learnColumns(const std::vector<std::string_view>& vLines)
{
    if (m_oForm.m_cDelimiter != ' ' || m_oForm.m_bWrapped) {
        return;
    }
    std::vector<std::string_view> vCells;
    std::vector<std::size_t> viEnds;
    for (const std::string_view sLine : vLines) {
        splitLasLine(sLine, ' ', vCells);
        if (static_cast<int>(vCells.size()) != m_oForm.m_iColumns) {
            continue;
        }
        viEnds.clear();
        for (const std::string_view sCell : vCells) {
            viEnds.push_back(static_cast<std::size_t>(sCell.data() + sCell.size() - sLine.data()));
        }
        if (sLine.find('\t') != std::string_view::npos || (!m_viEnds.empty() && viEnds != m_viEnds)) {
            m_viEnds.clear();
            return;
        }
        m_viEnds = viEnds;
    }
}

/// Numbers that fill their columns touch each other; the columns of the first full line part them.
bool LasRows::splitAtColumns(std::vector<std::string_view>& vCells) const
{
    if (m_viEnds.empty() || m_sLine.find('\t') != std::string_view::npos) {
        return false;
    }
    std::vector<std::string_view> vParts;
    std::size_t iStart = 0;
    for (const std::size_t iEnd : m_viEnds) {
        if (iEnd > m_sLine.size()) {
            return false;
        }
        vParts.push_back(trimmed(m_sLine.substr(iStart, iEnd - iStart)));
        iStart = iEnd;
    }
    if (!trimmed(m_sLine.substr(iStart)).empty() || !std::all_of(vParts.begin(), vParts.end(), isNumber)) {
        return false;
    }
    vCells = std::move(vParts);
    return true;
}

/// Every value ends where a column of the first full line ends: the others are blank.
bool LasRows::placeAtColumns(std::vector<std::string_view>& vCells) const
{
    std::vector<std::string_view> vPlaced(m_viEnds.size());
    for (const std::string_view sCell : vCells) {
        const auto iEnd = static_cast<std::size_t>(sCell.data() + sCell.size() - m_sLine.data());
        const auto it = std::find(m_viEnds.begin(), m_viEnds.end(), iEnd);
        if (it == m_viEnds.end()) {
            return false;
        }
        vPlaced[static_cast<std::size_t>(it - m_viEnds.begin())] = sCell;
    }
    vCells = std::move(vPlaced);
    return true;
}

/// "7.330-19508.961" holds two numbers, when that gives as many values as there are curves.
bool LasRows::splitAtSigns(std::vector<std::string_view>& vCells) const
{
    if (m_oForm.m_cDelimiter != ' ') {
        return false;
    }
    std::vector<std::string_view> vParts;
    for (const std::string_view sCell : vCells) {
        std::size_t iStart = 0;
        for (std::size_t i = 1; i < sCell.size(); ++i) {
            if (sCell[i] == '-' && isDigit(sCell[i - 1])) {
                vParts.push_back(sCell.substr(iStart, i - iStart));
                iStart = i;
            }
        }
        vParts.push_back(sCell.substr(iStart));
    }
    if (vParts.size() != static_cast<std::size_t>(m_oForm.m_iColumns) ||
        !std::all_of(vParts.begin(), vParts.end(), isNumber)) {
        return false;
    }
    vCells = std::move(vParts);
    return true;
}

} // namespace gkHost
