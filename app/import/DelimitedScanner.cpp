#include "DelimitedScanner.h"

#include "TextReading.h"

namespace gkHost {

DelimitedScanner::DelimitedScanner(std::string_view sBytes, char cDelimiter)
    : m_pBegin(sBytes.data())
    , m_pEnd(sBytes.data() + sBytes.size())
    , m_pPosition(sBytes.data())
    , m_cDelimiter(cDelimiter)
{
    m_vbStops['\n'] = m_vbStops['\r'] = true;
    m_vbStops[static_cast<unsigned char>(cDelimiter)] = true;
    m_vbStops['\t'] = m_vbStops['\t'] || cDelimiter == ' ';
}

void DelimitedScanner::seek(qint64 iPosition, qint64 iNextLine)
{
    m_pPosition = m_pBegin + iPosition;
    m_iNextLine = iNextLine;
    m_iUnclosedQuoteLine = 0;
}

void DelimitedScanner::skipBlanks()
{
    while (m_pPosition != m_pEnd && isBlank(*m_pPosition)) {
        ++m_pPosition;
    }
}

void DelimitedScanner::endRow()
{
    m_pRowEnd = m_pPosition;
    if (m_pPosition != m_pEnd) {
        m_pPosition += *m_pPosition == '\r' && m_pPosition + 1 != m_pEnd && m_pPosition[1] == '\n' ? 2 : 1;
    }
    ++m_iNextLine;
}

bool DelimitedScanner::nextRow(std::vector<RawCell>& vCells)
{
    vCells.clear();
    m_vsBuffers.clear();
    if (m_pPosition == m_pEnd) {
        return false;
    }
    m_iRowLine = m_iNextLine;
    m_pRow = m_pPosition;
    while (true) {
        const char* const pCell = m_pPosition;
        const char* p = pCell;
        if (m_cDelimiter == ' ') {
            skipBlanks();
            if (atRowEnd() && !vCells.empty()) {
                break;
            }
            p = m_pPosition;
        } else {
            while (p != m_pEnd && *p == ' ') {
                ++p;
            }
        }
        RawCell cell;
        if (p != m_pEnd && *p == '"') {
            m_pPosition = p;
            if (!quotedCell(cell)) {
                return false;
            }
        } else {
            while (p != m_pEnd && !m_vbStops[static_cast<unsigned char>(*p)]) {
                ++p;
            }
            const char* const pBegin = m_cDelimiter == ' ' ? m_pPosition : pCell;
            cell.m_sText = {pBegin, static_cast<std::size_t>(p - pBegin)};
            m_pPosition = p;
        }
        vCells.push_back(cell);
        if (atRowEnd()) {
            break;
        }
        ++m_pPosition; // the delimiter
    }
    endRow();
    return true;
}

bool DelimitedScanner::quotedCell(RawCell& cell)
{
    const qint64 iQuoteLine = m_iNextLine;
    const char* pPart = ++m_pPosition;
    std::string* psBuffer = nullptr;
    cell.m_bQuoted = true;
    while (true) {
        while (m_pPosition != m_pEnd && *m_pPosition != '"') {
            const bool bCrLf = *m_pPosition == '\r' && m_pPosition + 1 != m_pEnd && m_pPosition[1] == '\n';
            m_iNextLine += (*m_pPosition == '\n' || *m_pPosition == '\r') && !bCrLf ? 1 : 0;
            ++m_pPosition;
        }
        if (m_pPosition == m_pEnd) {
            m_iUnclosedQuoteLine = iQuoteLine;
            return false;
        }
        const char* const pQuote = m_pPosition++;
        if (m_pPosition == m_pEnd || *m_pPosition != '"') {
            cell.m_sText = {pPart, static_cast<std::size_t>(pQuote - pPart)};
            break;
        }
        if (!psBuffer) {
            psBuffer = &m_vsBuffers.emplace_back();
        }
        psBuffer->append(pPart, m_pPosition); // up to and with the first of the two quotes
        pPart = ++m_pPosition;
    }
    const char* const pRest = m_pPosition;
    while (m_pPosition != m_pEnd && !m_vbStops[static_cast<unsigned char>(*m_pPosition)]) {
        ++m_pPosition;
    }
    const std::string_view sRest = trimmed({pRest, static_cast<std::size_t>(m_pPosition - pRest)});
    if (psBuffer || !sRest.empty()) {
        std::string& sBuffer = psBuffer ? *psBuffer : m_vsBuffers.emplace_back();
        sBuffer.append(cell.m_sText).append(sRest);
        cell.m_sText = sBuffer;
        cell.m_bOwnText = true;
    }
    return true;
}

} // namespace gkHost
