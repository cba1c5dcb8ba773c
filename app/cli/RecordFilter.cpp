#include "RecordFilter.h"

#include "AttributeName.h"
#include "CommandText.h"

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataStrike.h>
#include <gkBase/MissingValue.h>

#include <QColor>

#include <algorithm>
#include <array>

namespace gkHost {

namespace {

/// A row number counted from 1; 0 for anything else.
int rowNumber(const QString& sText)
{
    bool bOk = false;
    const int iRow = sText.trimmed().toInt(&bOk);
    return bOk && iRow > 0 ? iRow : 0;
}

constexpr std::array<const char*, 3> g_trueWords = {"true", "yes", "1"};
constexpr std::array<const char*, 3> g_falseWords = {"false", "no", "0"};

bool isOneOf(const QString& sValue, const std::array<const char*, 3>& words)
{
    return std::any_of(words.begin(), words.end(), [&sValue](const char* pWord) {
        return sValue.compare(QLatin1String(pWord), Qt::CaseInsensitive) == 0;
    });
}

int recordCount(const gkBase::MatrixData& dataSet)
{
    int iRecords = 0;
    for (int i = 0; i < dataSet.childCount(); ++i)
        iRecords = std::max(iRecords, dataSet.child(i)->recordCount());
    return iRecords;
}

/// dNumber is sValue as a number, NaN when it is none.
bool cellEquals(const gkBase::MatrixColumn& column, int iRecord, const QString& sValue, double dNumber)
{
    if (column.isMissing(iRecord))
        return sValue.isEmpty();
    switch (column.type()) {
    case QMetaType::Double:
    case QMetaType::Int:
        return column.number(iRecord) == dNumber;
    case QMetaType::Bool:
        return isOneOf(sValue, column.value(iRecord).toBool() ? g_trueWords : g_falseWords);
    case QMetaType::QColor:
        return column.color(iRecord) == QColor(sValue);
    default:
        return column.text(iRecord) == sValue;
    }
}

} // namespace

bool RecordFilter::setRows(const QString& sRows, QString& sError)
{
    m_vRanges.clear();
    m_bRows = true;
    for (const QString& sPart : sRows.split(QLatin1Char(','))) {
        const qsizetype iDash = sPart.indexOf(QLatin1Char('-'));
        const int iFirst = rowNumber(iDash < 0 ? sPart : sPart.left(iDash));
        const int iLast = iDash < 0 ? iFirst : rowNumber(sPart.mid(iDash + 1));
        if (iFirst == 0 || iLast < iFirst) {
            sError = text("--rows: \"%1\" is no row or range of rows; write for example 1,4-9").arg(sPart);
            return false;
        }
        m_vRanges.emplace_back(iFirst - 1, iLast - 1);
    }
    return true;
}

bool RecordFilter::addCondition(const QString& sCondition, QString& sError)
{
    const qsizetype iEquals = sCondition.indexOf(QLatin1Char('='));
    if (iEquals < 1) {
        sError = text("--where: \"%1\" is no condition; write NAME=VALUE").arg(sCondition);
        return false;
    }
    m_vConditions.push_back({sCondition.left(iEquals).trimmed(), sCondition.mid(iEquals + 1).trimmed()});
    return true;
}

bool RecordFilter::apply(const std::vector<std::unique_ptr<gkBase::MatrixData>>& vDataSets, QString& sError) const
{
    for (const Condition& condition : m_vConditions) {
        const bool bKnown = std::any_of(vDataSets.begin(), vDataSets.end(), [&condition](const auto& poDataSet) {
            return attributeNamed(*poDataSet, condition.m_sName) != nullptr;
        });
        if (!bKnown) {
            sError = text("--where: there is no attribute \"%1\"").arg(condition.m_sName);
            return false;
        }
    }
    for (const auto& poDataSet : vDataSets) {
        if (isEmpty())
            break;
        std::vector<bool> vbKeep = keptRows(recordCount(*poDataSet));
        for (const Condition& condition : m_vConditions) {
            const bool bOther = std::any_of(vDataSets.begin(), vDataSets.end(), [&](const auto& poOther) {
                return poOther != poDataSet && namesDataSet(condition.m_sName, *poOther);
            });
            const gkBase::MatrixData* poAttribute = attributeNamed(*poDataSet, condition.m_sName);
            if (poAttribute || !bOther)
                narrow(vbKeep, poAttribute, condition);
        }
        keepRecords(*poDataSet, vbKeep);
    }
    return true;
}

std::vector<bool> RecordFilter::keptRows(int iRecords) const
{
    std::vector<bool> vbKeep(static_cast<std::size_t>(iRecords), !m_bRows);
    for (const auto& [iFirst, iLast] : m_vRanges)
        for (int i = iFirst; i <= std::min(iLast, iRecords - 1); ++i)
            vbKeep[static_cast<std::size_t>(i)] = true;
    return vbKeep;
}

void RecordFilter::narrow(std::vector<bool>& vbKeep, const gkBase::MatrixData* poAttribute, const Condition& condition)
{
    if (!poAttribute) {
        vbKeep.assign(vbKeep.size(), false);
        return;
    }
    bool bNumber = false;
    double dNumber = condition.m_sValue.toDouble(&bNumber);
    if (!bNumber)
        dNumber = gkBase::g_dEmptyCell;
    const gkBase::MatrixColumn& column = poAttribute->column();
    for (std::size_t i = 0; i < vbKeep.size(); ++i)
        vbKeep[i] = vbKeep[i] && cellEquals(column, static_cast<int>(i), condition.m_sValue, dNumber);
}

void RecordFilter::keepRecords(gkBase::MatrixData& dataSet, const std::vector<bool>& vbKeep)
{
    for (int iChild = 0; iChild < dataSet.childCount(); ++iChild) {
        gkBase::MatrixData* poAttribute = dataSet.child(iChild);
        if (!poAttribute || dynamic_cast<gkBase::MatrixDataStrike*>(poAttribute))
            continue; // a strike has no cells of its own: it follows its azimuth
        const gkBase::MatrixColumn& column = poAttribute->column();
        gkBase::MatrixColumn kept(column.type());
        for (std::size_t i = 0; i < vbKeep.size(); ++i)
            if (vbKeep[i])
                kept.appendValue(column.value(static_cast<int>(i)));
        poAttribute->setColumn(0, std::move(kept));
    }
}

} // namespace gkHost
