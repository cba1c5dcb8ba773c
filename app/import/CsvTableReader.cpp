#include "CsvTableReader.h"

#include "MissingNumbers.h"
#include "OrientationRecognizer.h"
#include "UnitWords.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>
#include <limits>

namespace gkHost {

namespace {

constexpr int g_iMaxColumns = 100000;

QString tr(const char* pcText)
{
    return QCoreApplication::translate("CsvTableReader", pcText);
}

QString delimiterName(char cDelimiter)
{
    switch (cDelimiter) {
    case '\t':
        return tr("tab");
    case ';':
        return tr("semicolon");
    case '|':
        return tr("pipe");
    case ' ':
        return tr("blanks");
    case ',':
        return tr("comma");
    default:
        return QString(QLatin1Char(cDelimiter));
    }
}

bool startsLikeComment(std::string_view sText)
{
    return (sText.starts_with('#') && !isColorText(sText.substr(0, 7))) || sText.starts_with("//");
}

/// "sep=;", which spreadsheets write in front of the header; zero for any other line.
char declaredDelimiter(std::string_view sLine)
{
    if (sLine.starts_with('"') && sLine.ends_with('"') && sLine.size() > 1) {
        sLine = sLine.substr(1, sLine.size() - 2);
    }
    const bool bDeclared = sLine.size() == 5 && equalsNoCase(sLine.substr(0, 4), "sep=");
    return bDeclared && std::string_view(",;\t|").find(sLine[4]) != std::string_view::npos ? sLine[4] : '\0';
}

} // namespace

CsvTableReader::CsvTableReader(const TextSource& source, const ImportOptions& options, const ImportProgress& progress,
                               ImportResult& result)
    : m_oSource(source)
    , m_oOptions(options)
    , m_oProgress(progress)
    , m_oResult(result)
    , m_oMarks(options.m_lMissingTexts)
{
}

void CsvTableReader::fail(qint64 iLine, const QString& sReason)
{
    m_oResult.m_sError = iLine > 0 ? tr("%1: line %2: %3").arg(m_oSource.file()).arg(iLine).arg(sReason)
                                   : tr("%1: %2").arg(m_oSource.file(), sReason);
}

bool CsvTableReader::skipLeadingComments()
{
    // No cell matters here: a byte that no text file holds as delimiter gives whole lines.
    DelimitedScanner scanner(m_oSource.bytes(), '\0');
    std::vector<RawCell> vCells;
    do {
        m_iBodyPosition = scanner.position();
        m_iBodyLine = scanner.nextLine();
        if (!scanner.nextRow(vCells)) {
            break;
        }
        const std::string_view sLine = trimmed(scanner.rowText());
        const char cDeclared = m_iComments == 0 ? declaredDelimiter(scanner.rowText()) : '\0';
        if (cDeclared != '\0') {
            m_oOptions.m_oDelimiter = m_oOptions.m_oDelimiter.value_or(cDeclared);
            m_oResult.m_oReport.addRemark(scanner.line(), tr("The file names its delimiter."));
        } else if (startsLikeComment(sLine)) {
            ++m_iComments;
            const std::size_t iText = sLine.find_first_not_of("#/");
            m_sLastComment = m_oSource.text(iText == std::string_view::npos ? "" : sLine.substr(iText));
            m_oResult.m_oReport.addRemark(scanner.line(), tr("Comment: %1").arg(m_sLastComment.trimmed()));
        } else if (!sLine.empty()) {
            return true;
        } else {
            m_sLastComment.clear();
        }
    } while (true);
    if (scanner.unclosedQuoteLine() > 0) {
        return true; // told by the reader of the rows
    }
    fail(0, tr("the file holds comments only."));
    return false;
}

void CsvTableReader::read(const QString& sTableName)
{
    if (!skipLeadingComments()) {
        return;
    }
    const std::string_view sBody = m_oSource.bytes().substr(static_cast<std::size_t>(m_iBodyPosition));
    m_oDialect = detectDialect(sBody, m_oOptions, m_oMarks);
    m_oScanner.emplace(m_oSource.bytes(), m_oDialect.m_cDelimiter);
    if (!readNames()) {
        return;
    }
    reportDialect();

    std::vector<ColumnCollector::Rules> vRules(static_cast<std::size_t>(m_oDialect.m_iColumns));
    for (std::size_t i = 0; i < vRules.size(); ++i) {
        vRules[i].m_cDecimalMark = m_oDialect.m_cDecimalMark;
        vRules[i].m_bAngle = OrientationRecognizer::isAngleName(m_lNames[static_cast<int>(i)]);
    }
    ColumnCollector collector(m_oSource, m_oMarks, std::move(vRules), expectedRows());
    ImportTable table;
    table.m_sName = sTableName;
    if (collect(collector, table)) {
        finish(collector, table);
        m_oResult.m_vTables.push_back(std::move(table));
    }
}

int CsvTableReader::expectedRows() const
{
    const std::string_view sRows = m_oSource.bytes().substr(static_cast<std::size_t>(m_iRowsPosition));
    auto iLines = std::count(sRows.begin(), sRows.end(), '\n');
    if (iLines == 0) {
        iLines = std::count(sRows.begin(), sRows.end(), '\r');
    }
    // A cell takes two bytes at least; this keeps a file of empty lines from asking for memory it never needs.
    const auto iMost = static_cast<qint64>(sRows.size()) / (2 * m_oDialect.m_iColumns) + 1;
    return static_cast<int>(std::min<qint64>({iLines + 1, iMost, std::numeric_limits<int>::max()}));
}

bool CsvTableReader::readNames()
{
    m_oScanner->seek(m_iBodyPosition, m_iBodyLine);
    std::vector<RawCell> vCells;
    bool bHeader = m_oDialect.m_bHeaderLine;
    bool bUnits = m_oDialect.m_bUnitsLine;
    if (!bHeader && !bUnits && !m_oOptions.m_oHeaderLine) {
        useCommentAsHeader();
    }
    while (bHeader || bUnits) {
        if (!m_oScanner->nextRow(vCells)) {
            break;
        }
        if (trimmed(m_oScanner->rowText()).empty()) {
            ++m_iEmptyLines;
        } else if (bHeader) {
            takeHeader(vCells, m_oScanner->line());
            bHeader = false;
        } else {
            for (const RawCell& cell : vCells) {
                m_lUnits << bareUnit(m_oSource.text(cellText(cell)));
            }
            m_iUnitsLine = m_oScanner->line();
            bUnits = false;
        }
    }
    if (m_oScanner->unclosedQuoteLine() > 0) {
        fail(m_oScanner->unclosedQuoteLine(), tr("the quote that begins here is never closed."));
        return false;
    }
    m_oDialect.m_iColumns = std::max(m_oDialect.m_iColumns, static_cast<int>(m_lNames.size()));
    if (m_oDialect.m_iColumns > g_iMaxColumns) {
        fail(m_iHeaderLine, tr("%1 columns are more than this program can show.").arg(m_oDialect.m_iColumns));
        return false;
    }
    nameColumns(m_iHeaderLine);
    m_iRowsPosition = m_oScanner->position();
    m_iRowsLine = m_oScanner->nextLine();
    return true;
}

void CsvTableReader::takeHeader(const std::vector<RawCell>& vCells, qint64 iLine)
{
    m_iHeaderLine = iLine;
    for (const RawCell& cell : vCells) {
        m_lNames << m_oSource.text(cellText(cell)).simplified();
    }
}

/// "# x y z" above rows of numbers is a header when it has a name for every column.
void CsvTableReader::useCommentAsHeader()
{
    if (m_sLastComment.isEmpty()) {
        return;
    }
    const QByteArray qComment = m_sLastComment.toUtf8();
    DelimitedScanner scanner({qComment.constData(), static_cast<std::size_t>(qComment.size())},
                             m_oDialect.m_cDelimiter);
    std::vector<RawCell> vCells;
    if (!scanner.nextRow(vCells) || static_cast<int>(vCells.size()) != m_oDialect.m_iColumns ||
        (m_oDialect.m_iColumns == 1 && m_sLastComment.trimmed().contains(u' '))) {
        return;
    }
    m_iHeaderLine = m_iBodyLine - 1;
    for (const RawCell& cell : vCells) {
        m_lNames
            << QString::fromUtf8(QByteArray(cell.m_sText.data(), static_cast<int>(cell.m_sText.size()))).simplified();
    }
}

void CsvTableReader::nameColumns(qint64 iLine)
{
    QSet<QString> lTaken;
    QStringList lNames;
    QStringList lUnits;
    for (int i = 0; i < m_oDialect.m_iColumns; ++i) {
        const NameAndUnit oHeader = splitNameAndUnit(m_lNames.value(i));
        QString sName = oHeader.m_sName;
        if (sName.isEmpty()) {
            sName = tr("Column %1").arg(i + 1);
            if (iLine > 0 && i < m_lNames.size()) {
                m_oResult.m_oReport.addRepair(iLine,
                                              tr("Column %1 has no name; it is called \"%2\".").arg(i + 1).arg(sName));
            }
        }
        const QString sWanted = sName;
        for (int iCopy = 1; lTaken.contains(sName); ++iCopy) {
            sName = sWanted + u'_' + QString::number(iCopy);
        }
        if (sName != sWanted) {
            m_oResult.m_oReport.addRepair(
                iLine,
                tr("The name \"%1\" stands twice; column %2 is called \"%3\".").arg(sWanted).arg(i + 1).arg(sName));
        }
        lTaken.insert(sName);
        lNames << sName;
        const QString sUnit = m_lUnits.value(i);
        lUnits << (sUnit.isEmpty() ? oHeader.m_sUnit : sUnit);
    }
    m_lNames = lNames;
    m_lUnits = lUnits;
}

void CsvTableReader::reportDialect()
{
    ImportReport& report = m_oResult.m_oReport;
    report.addAssumption(tr("Encoding"), m_oSource.encodingName());
    if (m_oSource.hasInvalidBytes()) {
        report.addRepair(0, tr("Bytes that are no %1 text show as \uFFFD.").arg(m_oSource.encodingName()));
    }
    report.addAssumption(tr("Delimiter"),
                         m_oDialect.m_iColumns > 1 ? delimiterName(m_oDialect.m_cDelimiter) : tr("none, one column"));
    report.addAssumption(tr("Decimal mark"), m_oDialect.m_cDecimalMark == ',' ? tr("comma") : tr("point"));
    report.addAssumption(tr("Header"), m_iHeaderLine > 0 ? tr("line %1").arg(m_iHeaderLine) : tr("none"));
    QStringList lUnits;
    for (int i = 0; i < m_lNames.size(); ++i) {
        if (!m_lUnits[i].isEmpty()) {
            lUnits << tr("%1 in %2").arg(m_lNames[i], m_lUnits[i]);
        }
    }
    const QString sWhere = m_iUnitsLine > 0 ? tr("line %1: ").arg(m_iUnitsLine) : QString();
    report.addAssumption(tr("Units"), lUnits.isEmpty() ? tr("none") : sWhere + lUnits.join(QStringLiteral(", ")));
}

bool CsvTableReader::isCommentRow(const std::vector<RawCell>& vCells) const
{
    const std::string_view sText = cellText(vCells.front());
    return !sText.empty() && (sText.front() == '#' || sText.front() == '/') && !vCells.front().m_bQuoted &&
           startsLikeComment(sText) && static_cast<int>(vCells.size()) != m_oDialect.m_iColumns;
}

bool CsvTableReader::checkLength(const std::vector<RawCell>& vCells, bool bReport)
{
    const int iCells = static_cast<int>(vCells.size());
    const int iColumns = m_oDialect.m_iColumns;
    if (iCells == iColumns) {
        return true;
    }
    if (iCells < iColumns) {
        if (bReport) {
            m_oResult.m_oReport.addRepair(m_oScanner->line(),
                                          tr("%1 of %2 cells; the others are empty.").arg(iCells).arg(iColumns));
        }
        return true;
    }
    const bool bRestEmpty = std::all_of(vCells.begin() + iColumns, vCells.end(),
                                        [this](const RawCell& cell) { return cellText(cell).empty(); });
    if (bReport && bRestEmpty) {
        m_oResult.m_oReport.addRepair(m_oScanner->line(), tr("Empty cells behind the last column."));
    } else if (bReport) {
        m_oResult.m_oReport.addRejectedRow(m_oScanner->line(),
                                           tr("%1 cells for %2 columns.").arg(iCells).arg(iColumns));
    }
    return bRestEmpty;
}

bool CsvTableReader::forEachRow(bool bReport, qint64 iDoneBefore, const RowHandler& handler)
{
    constexpr int iProgressRows = 4096;
    const auto iTotal = 2 * static_cast<qint64>(m_oSource.bytes().size());
    std::vector<RawCell> vCells;
    m_oScanner->seek(m_iRowsPosition, m_iRowsLine);
    for (int iRow = 0; m_oScanner->nextRow(vCells); ++iRow) {
        if (m_oProgress && iRow % iProgressRows == 0 && !m_oProgress(iDoneBefore + m_oScanner->position(), iTotal)) {
            m_oResult.m_bCancelled = true;
            return false;
        }
        if (vCells.size() == 1 && !vCells.front().m_bQuoted && cellText(vCells.front()).empty()) {
            m_iEmptyLines += bReport ? 1 : 0;
        } else if (isCommentRow(vCells)) {
            if (bReport) {
                m_oResult.m_oReport.addRemark(m_oScanner->line(),
                                              tr("Comment: %1").arg(m_oSource.text(m_oScanner->rowText())));
            }
        } else if (checkLength(vCells, bReport)) {
            handler(vCells, m_oScanner->line());
        }
    }
    if (m_oScanner->unclosedQuoteLine() > 0) {
        fail(m_oScanner->unclosedQuoteLine(), tr("the quote that begins here is never closed."));
        return false;
    }
    return true;
}

bool CsvTableReader::collect(ColumnCollector& collector, ImportTable& table)
{
    const int iColumns = m_oDialect.m_iColumns;
    const bool bFirst = forEachRow(true, 0, [&](const std::vector<RawCell>& vCells, qint64 iLine) {
        const int iCells = std::min(static_cast<int>(vCells.size()), iColumns);
        for (int i = 0; i < iCells; ++i) {
            collector.addCell(i, cellText(vCells[static_cast<std::size_t>(i)]), iLine);
        }
        for (int i = iCells; i < iColumns; ++i) {
            collector.addMissing(i);
        }
        table.m_oLines.append(collector.rowCount(), iLine);
        collector.endRow();
    });
    if (!bFirst) {
        return false;
    }
    collector.decideTypes();
    const auto iSize = static_cast<qint64>(m_oSource.bytes().size());
    const bool bSecond =
        !collector.needsSecondPass() || forEachRow(false, iSize, [&](const std::vector<RawCell>& vCells, qint64) {
            for (int i = 0; i < iColumns; ++i) {
                if (!collector.needsText(i)) {
                    continue;
                }
                if (i >= static_cast<int>(vCells.size())) {
                    collector.addMissingText(i);
                    continue;
                }
                const RawCell& cell = vCells[static_cast<std::size_t>(i)];
                collector.addText(i, cell.m_bQuoted ? cell.m_sText : cellText(cell), !cell.m_bOwnText);
            }
        });
    if (bSecond && m_oProgress) {
        m_oProgress(2 * iSize, 2 * iSize);
    }
    return bSecond;
}

void CsvTableReader::finish(ColumnCollector& collector, ImportTable& table)
{
    ImportReport& report = m_oResult.m_oReport;
    std::vector<std::vector<double>*> vpNumbers;
    for (int i = 0; i < collector.columnCount(); ++i) {
        vpNumbers.push_back(collector.numbers(i));
    }
    emptyMissingNumbers(vpNumbers, m_lNames, m_oOptions.m_vdMissingNumbers, m_oOptions.m_bDetectMissingNumbers, report);

    // A delimiter at the end of every line makes a column without a name and without a value.
    int iColumns = collector.columnCount();
    if (iColumns > 1 && m_iHeaderLine > 0 && collector.rowCount() > 0 &&
        collector.missingCount(iColumns - 1) == collector.rowCount() &&
        m_lNames.last() == tr("Column %1").arg(iColumns)) {
        --iColumns;
        report.addRepair(0, tr("The last column has neither a name nor a value; it is left out."));
    }
    QStringList lTypes;
    for (int i = 0; i < iColumns; ++i) {
        ImportColumn& column = table.m_vColumns.emplace_back();
        column.m_sName = m_lNames[i];
        column.m_sUnit = m_lUnits[i];
        const QString sMissing =
            collector.missingCount(i) > 0 ? tr(" (%1 empty)").arg(collector.missingCount(i)) : QString();
        lTypes << tr("%1: %2%3").arg(m_lNames[i], collector.typeName(i), sMissing);
        collector.remarkTexts(i, m_lNames[i], report);
        column.m_oValues = collector.takeColumn(i);
    }
    report.addAssumption(tr("Types"), lTypes.join(QStringLiteral("; ")));
    if (m_iEmptyLines > 0) {
        report.addAssumption(tr("Empty lines"), tr("%1 skipped").arg(m_iEmptyLines));
    }
    report.addTable(table.m_sName, iColumns, collector.rowCount());
}

} // namespace gkHost
