#include "ExportedCsvReader.h"

#include "TextReading.h"

#include <gkBase/MatrixDataCsv.h>

#include <QCoreApplication>

#include <charconv>
#include <cstdint>
#include <limits>

namespace gkHost {

using gkBase::MatrixColumn;
namespace MatrixDataCsv = gkBase::MatrixDataCsv;

namespace {

QString tr(const char* pcText)
{
    return QCoreApplication::translate("ExportedCsvReader", pcText);
}

template <class Number>
bool parse(std::string_view sText, Number& number)
{
    const char* const pEnd = sText.data() + sText.size();
    const auto [p, eError] = std::from_chars(sText.data(), pEnd, number);
    return eError == std::errc() && p == pEnd;
}

} // namespace

ExportedCsvReader::ExportedCsvReader(const TextSource& source, const ImportProgress& progress, ImportResult& result)
    : m_oSource(source)
    , m_oProgress(progress)
    , m_oResult(result)
    , m_oScanner(source.bytes(), ',')
{
}

bool ExportedCsvReader::recognises(std::string_view sBytes)
{
    return sBytes.starts_with(MatrixDataCsv::acDataSetPrefix) || sBytes.starts_with(MatrixDataCsv::acTypesPrefix);
}

bool ExportedCsvReader::fail(const QString& sReason)
{
    m_oResult.m_sError = tr("%1: line %2: %3").arg(m_oSource.file()).arg(m_oScanner.nextLine() - 1).arg(sReason);
    return false;
}

bool ExportedCsvReader::atTagLine() const
{
    return m_oSource.bytes().substr(static_cast<std::size_t>(m_oScanner.position())).starts_with('#');
}

/// Quotes mean nothing on these lines; hence they do not go through the scanner.
std::string_view ExportedCsvReader::takeTagLine()
{
    const auto iStart = static_cast<std::size_t>(m_oScanner.position());
    const std::string_view sRest = m_oSource.bytes().substr(iStart);
    const std::size_t iEnd = std::min(sRest.find('\n'), sRest.size());
    const std::size_t iNext = std::min(iEnd + 1, sRest.size());
    m_oScanner.seek(static_cast<qint64>(iStart + iNext), m_oScanner.nextLine() + 1);
    std::string_view sLine = sRest.substr(0, iEnd);
    if (sLine.ends_with('\r')) {
        sLine.remove_suffix(1);
    }
    return sLine;
}

/// A colour in the first column begins with the sign of the tag lines.
bool ExportedCsvReader::atColorRow(const std::vector<Column>& vColumns) const
{
    const std::string_view sRest = m_oSource.bytes().substr(static_cast<std::size_t>(m_oScanner.position()));
    return vColumns.front().m_eType == QMetaType::QColor && isColorText(sRest.substr(0, 7)) &&
           (sRest.size() == 7 || sRest[7] == ',' || sRest[7] == '\n' || sRest[7] == '\r');
}

bool ExportedCsvReader::startsDataSet(std::string_view sRest) const
{
    return sRest.starts_with(MatrixDataCsv::acDataSetPrefix);
}

void ExportedCsvReader::read(const QString& sTableName)
{
    ImportReport& report = m_oResult.m_oReport;
    report.addAssumption(tr("Form"), tr("exported data sets, with types and units"));
    report.addAssumption(tr("Encoding"), m_oSource.encodingName());
    const auto iEnd = static_cast<qint64>(m_oSource.bytes().size());
    while (m_oScanner.position() < iEnd) {
        ImportTable table;
        table.m_sName = sTableName;
        if (startsDataSet(m_oSource.bytes().substr(static_cast<std::size_t>(m_oScanner.position())))) {
            const std::string_view sLine = takeTagLine().substr(sizeof(MatrixDataCsv::acDataSetPrefix) - 1);
            const QByteArray qName(sLine.data(), static_cast<qsizetype>(sLine.size()));
            table.m_sName = MatrixDataCsv::unescapedName(qName);
        }
        if (!readBlock(table)) {
            m_oResult.m_vTables.clear();
            return;
        }
        report.addTable(table.m_sName, table.columnCount(), table.rowCount());
        m_oResult.m_vTables.push_back(std::move(table));
    }
}

bool ExportedCsvReader::readBlock(ImportTable& table)
{
    std::vector<Column> vColumns;
    const auto rest = [this] { return m_oSource.bytes().substr(static_cast<std::size_t>(m_oScanner.position())); };
    while (!rest().empty() && vColumns.empty()) {
        if (startsDataSet(rest())) {
            return true; // a data set without attributes
        }
        if (atTagLine()) {
            const std::string_view sLine = takeTagLine();
            if (sLine.starts_with(MatrixDataCsv::acTypesPrefix) && !readTypes(sLine, vColumns)) {
                return false;
            }
        } else if (m_oScanner.nextRow(m_vCells) && !m_oScanner.rowText().empty()) {
            return fail(tr("the line \"# types:\" is missing above the columns."));
        }
    }
    if (vColumns.empty()) {
        return true;
    }
    if (!readHeader(table, vColumns.size()) || !readRows(table, vColumns)) {
        return false;
    }
    finish(table, vColumns);
    return true;
}

bool ExportedCsvReader::readTypes(std::string_view sLine, std::vector<Column>& vColumns)
{
    sLine.remove_prefix(sizeof(MatrixDataCsv::acTypesPrefix) - 1);
    const QByteArray qWords(sLine.data(), static_cast<qsizetype>(sLine.size()));
    for (const QByteArray& qWord : qWords.split(',')) {
        const auto oType = MatrixDataCsv::parseTypeWord(qWord.trimmed());
        if (!oType) {
            return fail(tr("\"%1\" is no type of a column.").arg(QString::fromUtf8(qWord)));
        }
        Column& column = vColumns.emplace_back();
        column.m_eType = oType->eType;
        column.m_bStrike = oType->bStrike;
        column.m_iAzimuth = oType->iAzimuthColumn;
        column.m_oValues = MatrixColumn(oType->eType);
    }
    for (const Column& column : vColumns) {
        if (column.m_iAzimuth >= static_cast<int>(vColumns.size())) {
            return fail(tr("a strike is linked to column %1, which does not exist.").arg(column.m_iAzimuth + 1));
        }
    }
    return true;
}

bool ExportedCsvReader::readHeader(ImportTable& table, std::size_t iColumns)
{
    if (!m_oScanner.nextRow(m_vCells)) {
        return fail(tr("the header below \"# types:\" is missing."));
    }
    if (m_vCells.size() != iColumns) {
        return fail(tr("%1 names for %2 types.").arg(m_vCells.size()).arg(iColumns));
    }
    for (const RawCell& cell : m_vCells) {
        const MatrixDataCsv::Header oHeader = MatrixDataCsv::parseHeader(m_oSource.text(cell.m_sText));
        ImportColumn& column = table.m_vColumns.emplace_back();
        column.m_sName = oHeader.sName;
        column.m_sUnit = oHeader.sUnit;
        column.m_sCategory = oHeader.sCategory;
    }
    return true;
}

bool ExportedCsvReader::readRows(ImportTable& table, std::vector<Column>& vColumns)
{
    constexpr int iProgressRows = 4096;
    const std::string_view sBytes = m_oSource.bytes();
    const auto iTotal = static_cast<qint64>(sBytes.size());
    const bool bOneColumn = vColumns.size() == 1;
    int iRow = 0;
    while (m_oScanner.position() < iTotal) {
        if (m_oProgress && iRow % iProgressRows == 0 && !m_oProgress(m_oScanner.position(), iTotal)) {
            m_oResult.m_bCancelled = true;
            return false;
        }
        if (atTagLine() && !atColorRow(vColumns)) {
            if (startsDataSet(sBytes.substr(static_cast<std::size_t>(m_oScanner.position())))) {
                return true;
            }
            takeTagLine();
            continue;
        }
        if (!m_oScanner.nextRow(m_vCells)) {
            m_oResult.m_sError = tr("%1: line %2: the quote that begins here is never closed.")
                                     .arg(m_oSource.file())
                                     .arg(m_oScanner.unclosedQuoteLine());
            return false;
        }
        const bool bEmpty = m_oScanner.rowText().empty();
        const bool bSeparator = bEmpty && startsDataSet(sBytes.substr(static_cast<std::size_t>(m_oScanner.position())));
        if (bSeparator || (bEmpty && !bOneColumn)) {
            continue;
        }
        if (m_vCells.size() > vColumns.size()) {
            m_oResult.m_oReport.addRejectedRow(
                m_oScanner.line(), tr("%1 cells for %2 columns.").arg(m_vCells.size()).arg(vColumns.size()));
            continue;
        }
        addRow(vColumns);
        table.m_oLines.append(iRow++, m_oScanner.line());
    }
    return true;
}

void ExportedCsvReader::addRow(std::vector<Column>& vColumns)
{
    if (m_vCells.size() < vColumns.size()) {
        m_oResult.m_oReport.addRepair(
            m_oScanner.line(), tr("%1 of %2 cells; the others are empty.").arg(m_vCells.size()).arg(vColumns.size()));
    }
    for (std::size_t i = 0; i < vColumns.size(); ++i) {
        if (i >= m_vCells.size() || (m_vCells[i].m_sText.empty() && !m_vCells[i].m_bQuoted)) {
            addMissing(vColumns[i]);
        } else if (!addCell(vColumns[i], m_vCells[i])) {
            addMissing(vColumns[i]);
            m_oResult.m_oReport.addRepair(m_oScanner.line(),
                                          tr("\"%1\" does not fit the type of column %2; the cell is empty.")
                                              .arg(m_oSource.text(m_vCells[i].m_sText))
                                              .arg(i + 1));
        }
    }
}

void ExportedCsvReader::addMissing(Column& column)
{
    if (column.m_eType == QMetaType::Double) {
        column.m_vdNumbers.push_back(std::numeric_limits<double>::quiet_NaN());
    } else {
        column.m_oValues.resize(column.m_oValues.size() + 1);
    }
}

bool ExportedCsvReader::addCell(Column& column, const RawCell& cell)
{
    const std::string_view sText = cell.m_sText;
    column.m_bHasValues = true;
    double dNumber = 0;
    std::int32_t iNumber = 0;
    switch (column.m_eType) {
    case QMetaType::Double:
        if (!parse(sText, dNumber)) {
            return false;
        }
        column.m_vdNumbers.push_back(dNumber);
        return true;
    case QMetaType::Int:
        if (!parse(sText, iNumber)) {
            return false;
        }
        column.m_oValues.appendValue(static_cast<int>(iNumber));
        return true;
    case QMetaType::Bool:
        if (sText != "true" && sText != "false") {
            return false;
        }
        column.m_oValues.appendValue(sText == "true");
        return true;
    case QMetaType::QColor:
        if (!isColorText(sText)) {
            return false;
        }
        column.m_oValues.appendValue(QColor(m_oSource.text(sText)));
        return true;
    default:
        column.m_oValues.appendText(m_oSource.text(sText));
        return true;
    }
}

void ExportedCsvReader::finish(ImportTable& table, std::vector<Column>& vColumns)
{
    for (std::size_t i = 0; i < vColumns.size(); ++i) {
        Column& column = vColumns[i];
        ImportColumn& target = table.m_vColumns[i];
        if (column.m_bStrike && column.m_iAzimuth >= 0) {
            target.m_iStrikeOf = column.m_iAzimuth; // its cells follow from the azimuth
        } else if (column.m_bStrike && !column.m_bHasValues) {
            target.m_iStrikeOf = g_iStrikeWithoutAzimuth;
        } else if (column.m_eType == QMetaType::Double) {
            target.m_oValues = MatrixColumn::fromDoubles(std::move(column.m_vdNumbers));
        } else {
            target.m_oValues = std::move(column.m_oValues);
        }
    }
}

} // namespace gkHost
