#include "RecordFilter.h"

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataStrike.h>
#include <gkBase/MissingValue.h>

#include <QColor>
#include <QCoreApplication>

#include <algorithm>

namespace gkHost {

namespace {

QString text(const char* pText)
{
    return QCoreApplication::translate("RecordFilter", pText);
}

/// A row number counted from 1; 0 for anything else.
int rowNumber(const QString& sText)
{
    bool bOk = false;
    const int iRow = sText.trimmed().toInt(&bOk);
    return bOk && iRow > 0 ? iRow : 0;
}

gkBase::MatrixData* attributeOf(const gkBase::MatrixData& dataSet, const QString& sName)
{
    for (int i = 0; i < dataSet.childCount(); ++i)
        if (dataSet.child(i)->name() == sName)
            return dataSet.child(i);
    return nullptr;
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
        return column.value(iRecord).toBool()
                   ? sValue.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 || sValue == QLatin1String("1")
                   : sValue.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0 || sValue == QLatin1String("0");
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

bool RecordFilter::apply(gkBase::MatrixData& dataSet, QString& sError) const
{
    if (!m_bRows && m_vConditions.empty())
        return true;

    int iRecords = 0;
    for (int i = 0; i < dataSet.childCount(); ++i)
        iRecords = std::max(iRecords, dataSet.child(i)->recordCount());

    std::vector<bool> vbKeep(static_cast<std::size_t>(iRecords), !m_bRows);
    for (const auto& [iFirst, iLast] : m_vRanges)
        for (int i = iFirst; i <= std::min(iLast, iRecords - 1); ++i)
            vbKeep[static_cast<std::size_t>(i)] = true;

    for (const Condition& condition : m_vConditions) {
        const gkBase::MatrixData* poAttribute = attributeOf(dataSet, condition.m_sName);
        if (!poAttribute) {
            sError = text("--where: there is no attribute \"%1\" in \"%2\"").arg(condition.m_sName, dataSet.name());
            return false;
        }
        bool bNumber = false;
        double dNumber = condition.m_sValue.toDouble(&bNumber);
        if (!bNumber)
            dNumber = gkBase::g_dEmptyCell;
        const gkBase::MatrixColumn& column = poAttribute->column();
        for (int i = 0; i < iRecords; ++i)
            if (vbKeep[static_cast<std::size_t>(i)])
                vbKeep[static_cast<std::size_t>(i)] = cellEquals(column, i, condition.m_sValue, dNumber);
    }

    for (int iChild = 0; iChild < dataSet.childCount(); ++iChild) {
        gkBase::MatrixData* poAttribute = dataSet.child(iChild);
        if (dynamic_cast<gkBase::MatrixDataStrike*>(poAttribute))
            continue; // has no cells of its own: it follows its azimuth
        const gkBase::MatrixColumn& column = poAttribute->column();
        gkBase::MatrixColumn kept(column.type());
        for (int i = 0; i < iRecords; ++i)
            if (vbKeep[static_cast<std::size_t>(i)])
                kept.appendValue(column.value(i));
        poAttribute->setColumn(0, std::move(kept));
    }
    return true;
}

} // namespace gkHost
