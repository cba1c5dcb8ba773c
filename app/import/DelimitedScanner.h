#pragma once

#include <QtGlobal>

#include <array>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace gkHost {

/// A cell as the file writes it. Blanks around an unquoted cell belong to it.
struct RawCell
{
    std::string_view m_sText;
    bool m_bQuoted = false;
    bool m_bOwnText = false; ///< stands in a buffer of the scanner, valid until the next row only
};

/// Splits delimited text into rows of cells. Quotes may hide delimiters and line ends, a doubled quote inside is one
/// quote. Lines end with LF, CR LF or CR. With a blank as delimiter, runs of blanks and tabs part the cells.
class DelimitedScanner
{
public:
    DelimitedScanner(std::string_view sBytes, char cDelimiter);

    /// False at the end, or when a quote is never closed.
    bool nextRow(std::vector<RawCell>& vCells);
    /// The line on which the last row began, counted from 1.
    qint64 line() const { return m_iRowLine; }
    /// Where the next row begins, in bytes.
    qint64 position() const { return m_pPosition - m_pBegin; }
    /// The bytes of the last row without its line end.
    std::string_view rowText() const { return {m_pRow, static_cast<std::size_t>(m_pRowEnd - m_pRow)}; }
    /// The line of a quote that is never closed; 0 when there is none.
    qint64 unclosedQuoteLine() const { return m_iUnclosedQuoteLine; }

    /// Sets the scanner to a byte that begins a row, and its line number.
    void seek(qint64 iPosition, qint64 iNextLine);
    qint64 nextLine() const { return m_iNextLine; }

private:
    bool quotedCell(RawCell& cell);
    void skipBlanks();
    bool atRowEnd() const { return m_pPosition == m_pEnd || *m_pPosition == '\n' || *m_pPosition == '\r'; }
    void endRow();

    const char* m_pBegin;
    const char* m_pEnd;
    const char* m_pPosition;
    const char* m_pRow = nullptr;
    const char* m_pRowEnd = nullptr;
    char m_cDelimiter;
    std::array<bool, 256> m_vbStops{};
    qint64 m_iNextLine = 1;
    qint64 m_iRowLine = 0;
    qint64 m_iUnclosedQuoteLine = 0;
    std::deque<std::string> m_vsBuffers; ///< texts with doubled quotes of the current row
};

} // namespace gkHost
