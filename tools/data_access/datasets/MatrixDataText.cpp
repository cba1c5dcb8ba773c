// The text forms of data sets: comma-separated files (the form is described in docs/csv-format.md) and the table
// that goes onto the clipboard.

#include "MatrixData.h"

#include "FileCommit.h"
#include "MatrixDataCsv.h"
#include "MatrixDataStrike.h"
#include "UnitManager.h"

#include <QFileInfo>
#include <QMimeData>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace gkBase {

namespace {

constexpr double dMissing = 99999.0;

// ---- cells as bytes ------------------------------------------------------------------------------------------------

/// The fewest digits that read back to the same value, without an exponent where that stays readable.
void appendNumber(std::string& sOut, double dValue)
{
    std::array<char, 64> aDigits;
    const double dSize = std::abs(dValue);
    const bool bFixed = dSize == 0.0 || (dSize >= 1e-5 && dSize < 1e15);
    const std::to_chars_result result =
        bFixed ? std::to_chars(aDigits.data(), aDigits.data() + aDigits.size(), dValue, std::chars_format::fixed)
               : std::to_chars(aDigits.data(), aDigits.data() + aDigits.size(), dValue);
    sOut.append(aDigits.data(), result.ptr);
}

void appendNumber(std::string& sOut, int iValue)
{
    std::array<char, 16> aDigits;
    sOut.append(aDigits.data(), std::to_chars(aDigits.data(), aDigits.data() + aDigits.size(), iValue).ptr);
}

void appendHexColor(std::string& sOut, const QColor& oColor)
{
    constexpr char acHex[] = "0123456789abcdef";
    const QRgb rgb = oColor.rgb();
    sOut += '#';
    for (int iShift = 20; iShift >= 0; iShift -= 4)
        sOut += acHex[(rgb >> iShift) & 0xf];
}

/// A text as a cell of the comma-separated form, quoted where it must be.
std::string csvCell(const QString& sText)
{
    std::string sBytes = sText.toStdString();
    const bool bQuote = sBytes.empty() || sBytes.front() == ' ' || sBytes.front() == '\t' || sBytes.front() == '#' ||
                        sBytes.back() == ' ' || sBytes.back() == '\t' ||
                        sBytes.find_first_of(",\"\r\n") != std::string::npos;
    if (!bQuote)
        return sBytes;
    std::string sQuoted = "\"";
    for (const char c : sBytes)
        sQuoted.append(c == '"' ? 2 : 1, c);
    return sQuoted + '"';
}

/// One attribute while its block is written: typed access to its cells, and the texts already in their written form.
class CellWriter
{
public:
    CellWriter(const MatrixData& attribute, int iColumn)
        : m_column(attribute.column(iColumn))
        , m_doubles(m_column.doubles())
    {
        m_vsTexts.reserve(m_column.texts().size());
        for (const QString& sText : m_column.texts())
            m_vsTexts.push_back(csvCell(sText));
    }

    void append(std::string& sOut, int iRecord) const
    {
        if (iRecord >= m_column.size())
            return;
        const std::size_t i = static_cast<std::size_t>(iRecord);
        switch (m_column.type()) {
        case QMetaType::Double:
            if (!std::isnan(m_doubles[i]))
                appendNumber(sOut, m_doubles[i]);
            break;
        case QMetaType::Int:
            if (!m_column.isMissing(iRecord))
                appendNumber(sOut, static_cast<int>(m_column.ints()[i]));
            break;
        case QMetaType::Bool:
            if (!m_column.isMissing(iRecord))
                sOut += m_column.number(iRecord) != 0.0 ? "true" : "false";
            break;
        case QMetaType::QColor:
            if (!m_column.isMissing(iRecord))
                appendHexColor(sOut, m_column.color(iRecord));
            break;
        default:
            if (const int iCode = m_column.textCodes()[i]; iCode >= 0)
                sOut += m_vsTexts[static_cast<std::size_t>(iCode)];
        }
    }

private:
    const MatrixColumn& m_column;
    std::span<const double> m_doubles;
    std::vector<std::string> m_vsTexts;
};

// ---- the comma-separated file ---------------------------------------------------------------------------------------

struct CsvBlock
{
    const MatrixData* poDataSet;
    std::vector<const MatrixData*> vpAttributes;
};

/// The data sets at and below a node, in tree order; a single attribute makes a block of its own. A node that holds
/// only data sets is none.
void collectBlocks(const MatrixData& node, std::vector<CsvBlock>& vBlocks)
{
    CsvBlock block{&node, {}};
    std::vector<const MatrixData*> vpInner;
    for (int i = 0; i < node.childCount(); ++i)
        (node.child(i)->isAttribute() ? block.vpAttributes : vpInner).push_back(node.child(i));
    if (node.isAttribute())
        block.vpAttributes.push_back(&node);
    const bool bEmptyDataSet = node.childCount() == 0 && node.parentNode();
    if (!block.vpAttributes.empty() || bEmptyDataSet)
        vBlocks.push_back(std::move(block));
    for (const MatrixData* poInner : vpInner)
        collectBlocks(*poInner, vBlocks);
}

std::string typeText(const MatrixData& attribute, const std::vector<const MatrixData*>& vpAttributes)
{
    const auto* poStrike = dynamic_cast<const MatrixDataStrike*>(&attribute);
    if (!poStrike)
        return MatrixDataCsv::typeWord(attribute.type()).toStdString();
    std::size_t iColumn = 1;
    for (const MatrixData* poAttribute : vpAttributes) {
        if (poAttribute == poStrike->azimuth())
            return "strike:" + std::to_string(iColumn);
        iColumn += static_cast<std::size_t>(std::max(1, poAttribute->columnCount()));
    }
    return "strike";
}

/// Name of a column: a table's further columns have headers of their own or a number behind the name.
QString columnName(const MatrixData& attribute, int iColumn)
{
    if (attribute.columnCount() < 2)
        return attribute.name();
    const QStringList lHeaders = attribute.columnHeaders();
    if (iColumn < lHeaders.size())
        return lHeaders[iColumn];
    return iColumn == 0 ? attribute.name() : attribute.name() + u'_' + QString::number(iColumn + 1);
}

/// Writes blocks to a device through a buffer; stops at the first failure.
class CsvFile
{
public:
    CsvFile(QSaveFile& device, const bool* pbRows, int iRows)
        : m_device(device)
    {
        if (pbRows && iRows > 0 && std::find(pbRows, pbRows + iRows, true) != pbRows + iRows) {
            m_pbRows = pbRows;
            m_iRows = iRows;
        }
        m_sBuffer.reserve(iBufferSize + iBufferSize / 4);
    }

    void write(const CsvBlock& block, bool bNamed)
    {
        if (bNamed)
            m_sBuffer += MatrixDataCsv::acDataSetPrefix +
                         MatrixDataCsv::escapedName(block.poDataSet->name()).toStdString() + '\n';
        if (!block.vpAttributes.empty()) {
            writeHead(block);
            writeRecords(block);
        }
    }

    void writeSeparator() { m_sBuffer += '\n'; }

    bool flush()
    {
        m_bOk = m_bOk && m_device.write(m_sBuffer.data(), static_cast<qint64>(m_sBuffer.size())) ==
                             static_cast<qint64>(m_sBuffer.size());
        m_sBuffer.clear();
        return m_bOk;
    }

private:
    static constexpr std::size_t iBufferSize = 1 << 20;

    void writeHead(const CsvBlock& block)
    {
        std::string sTypes;
        std::string sHeaders;
        for (const MatrixData* poAttribute : block.vpAttributes) {
            const std::string sType = typeText(*poAttribute, block.vpAttributes);
            for (int iColumn = 0; iColumn < std::max(1, poAttribute->columnCount()); ++iColumn) {
                const QString sHeader =
                    MatrixDataCsv::headerText(columnName(*poAttribute, iColumn), *poAttribute->unitManager());
                sTypes += sTypes.empty() ? "" : ",";
                sTypes += sType;
                sHeaders += sHeaders.empty() ? "" : ",";
                sHeaders += csvCell(sHeader);
            }
        }
        m_sBuffer += MatrixDataCsv::acTypesPrefix + sTypes + '\n' + sHeaders + '\n';
    }

    void writeRecords(const CsvBlock& block)
    {
        int iRecords = 0;
        std::vector<CellWriter> vWriters;
        for (const MatrixData* poAttribute : block.vpAttributes) {
            iRecords = std::max(iRecords, poAttribute->recordCount());
            for (int iColumn = 0; iColumn < std::max(1, poAttribute->columnCount()); ++iColumn)
                vWriters.emplace_back(*poAttribute, iColumn);
        }
        const int iEnd = m_pbRows ? std::min(iRecords, m_iRows) : iRecords;
        for (int iRecord = 0; iRecord < iEnd && m_bOk; ++iRecord) {
            if (m_pbRows && !m_pbRows[iRecord])
                continue;
            for (const CellWriter& writer : vWriters) {
                writer.append(m_sBuffer, iRecord);
                m_sBuffer += ',';
            }
            m_sBuffer.back() = '\n';
            if (m_sBuffer.size() >= iBufferSize)
                flush();
        }
    }

    QSaveFile& m_device;
    const bool* m_pbRows = nullptr; ///< null: all records
    int m_iRows = 0;
    std::string m_sBuffer;
    bool m_bOk = true;
};

// ---- the clipboard table --------------------------------------------------------------------------------------------

/// A cell in display units: with the unit's decimals, or with all digits so that pasting it back loses nothing.
QString displayText(const MatrixData& attribute, int iRecord, bool bAllDigits)
{
    const QVariant qValue = attribute.value(attribute.rowOffSet() + iRecord, 0);
    if (!qValue.isValid())
        return QString();
    switch (qValue.typeId()) {
    case QMetaType::Double: {
        const double dValue = qValue.toDouble();
        if (std::isnan(dValue) || dValue == dMissing)
            return QString();
        const double dDisplay = attribute.toDisplayDouble(qValue);
        if (!bAllDigits)
            return QString::number(dDisplay, 'f', attribute.unitManager()->precision());
        std::string sDigits;
        appendNumber(sDigits, dDisplay);
        return QString::fromStdString(sDigits);
    }
    case QMetaType::QColor:
        return MatrixData::colorHexaString(qValue.value<QColor>());
    default:
        return qValue.toString();
    }
}

QString displayHeader(const MatrixData& attribute)
{
    const QString sTag = attribute.unitManager()->getDisplayUnitTag();
    return sTag.isEmpty() ? attribute.name() : attribute.name() + QStringLiteral(" [") + sTag + u']';
}

/// A text inside one cell of tab-separated lines.
QString tabCell(QString sText)
{
    return sText.replace(u'\t', u' ').replace(u'\n', u' ').remove(u'\r');
}

void appendCellStyle(QString& sHtml, const MatrixData& attribute, int iRecord)
{
    const bool bNumber = attribute.type() == QMetaType::Double || attribute.type() == QMetaType::Int;
    const bool bColor = attribute.type() == QMetaType::QColor && attribute.column().color(iRecord).isValid();
    if (bNumber)
        sHtml += QStringLiteral("<td align=\"right\">");
    else if (bColor)
        sHtml += QStringLiteral("<td bgcolor=\"") + MatrixData::colorHexaString(attribute.column().color(iRecord)) +
                 QStringLiteral("\">");
    else
        sHtml += QStringLiteral("<td>");
}

} // namespace

void MatrixData::writeCSV(const QString& sPath, bool* pbOk, const bool* pbRows, int iRows) const
{
    QSaveFile file(sPath);
    bool bOk = file.open(QIODevice::WriteOnly);
    if (bOk) {
        std::vector<CsvBlock> vBlocks;
        collectBlocks(*this, vBlocks);
        CsvFile csv(file, pbRows, iRows);
        const QString sBaseName = QFileInfo(sPath).completeBaseName();
        for (std::size_t i = 0; i < vBlocks.size(); ++i) {
            if (i > 0)
                csv.writeSeparator();
            const bool bImplied =
                vBlocks.size() == 1 && !vBlocks[i].vpAttributes.empty() && vBlocks[i].poDataSet->name() == sBaseName;
            csv.write(vBlocks[i], !bImplied);
        }
        bOk = csv.flush() && commitWhole(file);
    }
    if (pbOk)
        *pbOk = bOk;
}

void MatrixData::setHTML_MimeData(QMimeData* pMimeData, const std::vector<MatrixData*>& vpNodes,
                                  const std::vector<int>& viRecords)
{
    if (!pMimeData)
        return;
    std::vector<const MatrixData*> vpAttributes;
    int iRecords = 0;
    for (const MatrixData* poNode : vpNodes)
        if (poNode && poNode->isAttribute()) {
            vpAttributes.push_back(poNode);
            iRecords = std::max(iRecords, poNode->recordCount());
        }
    if (vpAttributes.empty())
        return;

    QString sHtml = QStringLiteral("<table><tr>");
    QString sText;
    for (const MatrixData* poAttribute : vpAttributes) {
        const QString sHeader = displayHeader(*poAttribute);
        sHtml += QStringLiteral("<th>") + sHeader.toHtmlEscaped() + QStringLiteral("</th>");
        sText += tabCell(sHeader) + u'\t';
    }
    sHtml += QStringLiteral("</tr>");
    sText.back() = u'\n';
    const int iLines = viRecords.empty() ? iRecords : static_cast<int>(viRecords.size());
    for (int iLine = 0; iLine < iLines; ++iLine) {
        const int iRecord = viRecords.empty() ? iLine : viRecords[static_cast<std::size_t>(iLine)];
        if (iRecord < 0 || iRecord >= iRecords)
            continue;
        sHtml += QStringLiteral("<tr>");
        for (const MatrixData* poAttribute : vpAttributes) {
            appendCellStyle(sHtml, *poAttribute, iRecord);
            sHtml += displayText(*poAttribute, iRecord, false).toHtmlEscaped() + QStringLiteral("</td>");
            sText += tabCell(displayText(*poAttribute, iRecord, true)) + u'\t';
        }
        sHtml += QStringLiteral("</tr>");
        sText.back() = u'\n';
    }
    pMimeData->setHtml(sHtml + QStringLiteral("</table>"));
    pMimeData->setText(sText);
}

} // namespace gkBase
