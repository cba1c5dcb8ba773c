#include "LasTableReader.h"

#include "MissingNumbers.h"
#include "UnitWords.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace gkHost {

namespace {

QString tr(const char* pcText)
{
    return QCoreApplication::translate("LasImporter", pcText);
}

bool isLengthUnit(const QString& sUnit)
{
    static const QStringList lUnits = {u"m"_qs,      u"ft"_qs,    u"f"_qs,      u"feet"_qs, u"foot"_qs, u"meter"_qs,
                                       u"meters"_qs, u"metre"_qs, u"metres"_qs, u"km"_qs,   u"cm"_qs,   u"in"_qs};
    return lUnits.contains(sUnit.toLower());
}

/// Text by declaration: strings, and dates or times of form 3.0.
bool isTextFormat(const QString& sFormat)
{
    const QString sUpper = sFormat.toUpper();
    return sUpper.startsWith(u'S') || sUpper.contains(QStringLiteral("YY")) || sUpper.contains(QStringLiteral("HH")) ||
           sUpper.contains(QStringLiteral("DD"));
}

std::string_view unquoted(std::string_view sCell)
{
    const bool bQuoted =
        sCell.size() > 1 && (sCell.front() == '"' || sCell.front() == '\'') && sCell.back() == sCell.front();
    return bQuoted ? sCell.substr(1, sCell.size() - 2) : sCell;
}

} // namespace

LasTableReader::LasTableReader(const TextSource& source, const LasHeader& header, const ImportOptions& options,
                               const ImportProgress& progress, ImportResult& result)
    : m_oSource(source)
    , m_oHeader(header)
    , m_oOptions(options)
    , m_oProgress(progress)
    , m_oResult(result)
    , m_oMarks(header.m_sNullText.isEmpty() ? options.m_lMissingTexts
                                            : options.m_lMissingTexts + QStringList(header.m_sNullText))
{
}

QString LasTableReader::freeName(const QString& sWanted, qint64 iLine)
{
    const auto taken = [this](const QString& sName) {
        return std::any_of(m_vCurves.begin(), m_vCurves.end(),
                           [&](const ImportColumn& column) { return column.m_sName == sName; });
    };
    QString sName = sWanted;
    for (int i = 1; taken(sName); ++i) {
        sName = sWanted + u'_' + QString::number(i);
    }
    if (sName != sWanted) {
        m_oResult.m_oReport.addRepair(
            iLine, tr("The curve \"%1\" stands twice; this one is called \"%2\".").arg(sWanted, sName));
    }
    return sName;
}

void LasTableReader::nameCurves(const LasSection& data, const LasSection* pDefinition)
{
    m_vCurves.clear();
    m_vsFormats.clear();
    if (!pDefinition) {
        m_oResult.m_oReport.addRepair(data.m_iLine, tr("No section describes the curves."));
        return;
    }
    ImportReport& report = m_oResult.m_oReport;
    for (const LasItem& item : pDefinition->m_vItems) {
        QString sName = item.m_sMnemonic;
        if (sName.isEmpty()) {
            sName = tr("Curve %1").arg(m_vCurves.size() + 1);
            report.addRepair(item.m_iLine, tr("The curve has no mnemonic; it is called \"%1\".").arg(sName));
        }
        if (item.m_bIrregular) {
            report.addRepair(item.m_iLine, tr("The line of the curve \"%1\" has no dot.").arg(sName));
        }
        ImportColumn column;
        column.m_sName = freeName(sName, item.m_iLine);
        column.m_sUnit = bareUnit(item.m_sUnit);
        column.m_sDescription = item.m_sDescription;
        if (item.m_sUnit.isEmpty() && isUnitWord(item.m_sValue)) {
            column.m_sUnit = bareUnit(item.m_sValue);
            report.addRepair(item.m_iLine, tr("\"%1\" was read as the unit of \"%2\".").arg(item.m_sValue, sName));
        }
        m_vCurves.push_back(std::move(column));
        m_vsFormats.push_back(item.m_sFormat);
    }
    if (!m_vCurves.empty() && isLengthUnit(m_vCurves.front().m_sUnit)) {
        ImportColumn& index = m_vCurves.front();
        index.m_sCategory = QStringLiteral("depth");
        if (index.m_sUnit.compare(QStringLiteral("f"), Qt::CaseInsensitive) == 0) {
            report.addAssumption(tr("Unit of \"%1\"").arg(index.m_sName), tr("%1 is read as foot").arg(index.m_sUnit));
            index.m_sUnit = QStringLiteral("ft");
        }
    }
}

/// Columns that no curve describes take their names from the title line when it has one for every column.
void LasTableReader::nameFurtherColumns(const LasSection& data, int iColumns)
{
    const QStringList lTitle = data.m_sTitle.section(u'|', 0, 0).simplified().split(u' ', Qt::SkipEmptyParts).mid(1);
    const bool bTitle = lTitle.size() == iColumns;
    const auto iCurves = static_cast<int>(m_vCurves.size());
    for (int i = iCurves; i < iColumns; ++i) {
        ImportColumn column;
        column.m_sName = freeName(bTitle ? lTitle[i] : tr("Column %1").arg(i + 1), data.m_iLine);
        m_vCurves.push_back(std::move(column));
        m_vsFormats.emplace_back();
    }
    if (iColumns > iCurves && iCurves > 0) {
        m_oResult.m_oReport.addRepair(
            data.m_iLine,
            tr("The lines hold %1 values for %2 curves; the further columns are kept.").arg(iColumns).arg(iCurves));
    }
}

std::vector<ColumnCollector::Rules> LasTableReader::rules(const LasDataForm& form) const
{
    std::vector<ColumnCollector::Rules> vRules(m_vCurves.size());
    for (std::size_t i = 0; i < vRules.size(); ++i) {
        vRules[i].m_cDecimalMark = form.m_cDecimalMark;
        vRules[i].m_bOnlyDoubles = true;
        vRules[i].m_bForceText = isTextFormat(m_vsFormats[i]);
    }
    return vRules;
}

bool LasTableReader::read(const LasSection& data, const LasSection* pDefinition, const QString& sTableName)
{
    nameCurves(data, pDefinition);
    const LasDataForm form = detectLasForm(data, static_cast<int>(m_vCurves.size()), m_oHeader.m_cDelimiter,
                                           m_oHeader.m_bWrapped, m_oOptions);
    nameFurtherColumns(data, form.m_iColumns);
    if (m_vCurves.empty()) {
        m_oResult.m_oReport.addRemark(data.m_iLine, tr("The data section is empty."));
        return true;
    }
    reportForm(form);
    const auto iLines = std::count(data.m_sBody.begin(), data.m_sBody.end(), '\n') + 1;
    const auto iMost = static_cast<qint64>(data.m_sBody.size()) / (2 * form.m_iColumns) + 1;
    ColumnCollector collector(m_oSource, m_oMarks, rules(form), static_cast<int>(std::min<qint64>(iLines, iMost)));
    ImportTable table;
    table.m_sName = sTableName;
    if (!collect(data, form, collector, table.m_oLines)) {
        return false;
    }
    emptyNulls(collector);
    ImportReport& report = m_oResult.m_oReport;
    for (int i = 0; i < collector.columnCount(); ++i) {
        ImportColumn& curve = m_vCurves[static_cast<std::size_t>(i)];
        collector.remarkTexts(i, curve.m_sName, report);
        curve.m_oValues = collector.takeColumn(i);
    }
    table.m_vColumns = std::move(m_vCurves);
    if (collector.rowCount() == 0) {
        report.addRemark(data.m_iLine, tr("The data section is empty."));
    }
    remarkIndex(table);
    report.addTable(table.m_sName, table.columnCount(), collector.rowCount());
    m_oResult.m_vTables.push_back(std::move(table));
    return true;
}

bool LasTableReader::progress(const LasRows& rows, qint64 iPass)
{
    const auto iTotal = static_cast<qint64>(m_oSource.bytes().size());
    const bool bGoOn =
        !m_oProgress || m_oProgress((iPass + 1) * iTotal - static_cast<qint64>(rows.remaining()), 2 * iTotal);
    m_oResult.m_bCancelled = !bGoOn;
    return bGoOn;
}

bool LasTableReader::collect(const LasSection& data, const LasDataForm& form, ColumnCollector& collector,
                             LineMap& lines)
{
    constexpr int iProgressRows = 4096;
    std::vector<std::string_view> vCells;
    LasRows rows(data, form, &m_oResult.m_oReport);
    while (rows.next(vCells)) {
        if (collector.rowCount() % iProgressRows == 0 && !progress(rows, 0)) {
            return false;
        }
        for (int i = 0; i < collector.columnCount(); ++i) {
            const std::string_view sCell = vCells[static_cast<std::size_t>(i)];
            collector.addCell(i, cleanCell(sCell, form.m_cDecimalMark, rows.line(), true), rows.line());
        }
        lines.append(collector.rowCount(), rows.line());
        collector.endRow();
    }
    collector.decideTypes();
    if (!collector.needsSecondPass()) {
        return true;
    }
    LasRows again(data, form, nullptr);
    for (int iRow = 0; again.next(vCells); ++iRow) {
        if (iRow % iProgressRows == 0 && !progress(again, 1)) {
            return false;
        }
        for (int i = 0; i < collector.columnCount(); ++i) {
            if (collector.needsText(i)) {
                collector.addText(i, unquoted(vCells[static_cast<std::size_t>(i)]), true);
            }
        }
    }
    return true;
}

std::string_view LasTableReader::cleanCell(std::string_view sCell, char cDecimalMark, qint64 iLine, bool bReport)
{
    const std::string_view sBare = unquoted(sCell);
    const char cOther = cDecimalMark == '.' ? ',' : '.';
    if (sBare.find(cOther) == std::string_view::npos) {
        return sBare;
    }
    double dValue = 0;
    if (parseNumber(sBare, cOther, dValue) == NumberKind::None) {
        return sBare;
    }
    if (bReport) {
        m_oResult.m_oReport.addRepair(iLine,
                                      tr("\"%1\" was read with a decimal %2.")
                                          .arg(m_oSource.text(sBare), cOther == ',' ? tr("comma") : tr("point")));
    }
    m_sBuffer.assign(sBare);
    std::replace(m_sBuffer.begin(), m_sBuffer.end(), cOther, cDecimalMark);
    return m_sBuffer;
}

void LasTableReader::emptyNulls(ColumnCollector& collector)
{
    std::vector<std::vector<double>*> vpNumbers;
    QStringList lNames;
    for (int i = 0; i < collector.columnCount(); ++i) {
        vpNumbers.push_back(collector.numbers(i));
        lNames << m_vCurves[static_cast<std::size_t>(i)].m_sName;
    }
    std::vector<double> vdMarks = m_oOptions.m_vdMissingNumbers;
    if (m_oHeader.m_odNull) {
        vdMarks.push_back(*m_oHeader.m_odNull);
        // An index that runs through the null value means that depth.
        const auto [dLow, dHigh] = std::minmax({m_oHeader.m_odStart.value_or(0), m_oHeader.m_odStop.value_or(0)});
        if (*m_oHeader.m_odNull >= dLow && *m_oHeader.m_odNull <= dHigh) {
            vpNumbers.front() = nullptr;
        }
    }
    const bool bDetect = m_oOptions.m_bDetectMissingNumbers && !m_oHeader.m_odNull;
    emptyMissingNumbers(vpNumbers, lNames, vdMarks, bDetect, m_oResult.m_oReport);
}

void LasTableReader::reportForm(const LasDataForm& form)
{
    ImportReport& report = m_oResult.m_oReport;
    const QString sDelimiter = form.m_cDelimiter == ' '    ? tr("blanks")
                               : form.m_cDelimiter == '\t' ? tr("tab")
                               : form.m_cDelimiter == ','  ? tr("comma")
                                                           : QString(QLatin1Char(form.m_cDelimiter));
    report.addAssumption(tr("Delimiter"), sDelimiter);
    if (form.m_cDecimalMark == ',') {
        report.addAssumption(tr("Decimal mark"), tr("comma"));
    }
    if (form.m_bWrapped) {
        report.addAssumption(tr("Wrapped"),
                             m_oHeader.m_bWrapped ? tr("yes") : tr("yes, though the header does not say so"));
    }
    if (!form.m_bWrapped && form.m_iUsualCells > 0 && form.m_iUsualCells < form.m_iColumns) {
        report.addRepair(0, tr("The lines hold %1 values for %2 curves; the last curves are empty.")
                                .arg(form.m_iUsualCells)
                                .arg(form.m_iColumns));
    }
}

void LasTableReader::remarkIndex(const ImportTable& table)
{
    const auto vdIndex = table.m_vColumns.front().m_oValues.doubles();
    int iRising = 0;
    int iFalling = 0;
    for (std::size_t i = 1; i < vdIndex.size(); ++i) {
        iRising += vdIndex[i] > vdIndex[i - 1] ? 1 : 0;
        iFalling += vdIndex[i] < vdIndex[i - 1] ? 1 : 0;
    }
    const QString& sName = table.m_vColumns.front().m_sName;
    if (iRising > 0 && iFalling > 0) {
        m_oResult.m_oReport.addRemark(0, tr("\"%1\" neither rises nor falls throughout.").arg(sName));
    } else if (iFalling > 0) {
        m_oResult.m_oReport.addRemark(0, tr("\"%1\" falls from row to row.").arg(sName));
    }
}

} // namespace gkHost
