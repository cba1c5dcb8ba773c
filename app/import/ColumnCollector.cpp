#include "ColumnCollector.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>

namespace gkHost {

using gkBase::MatrixColumn;

namespace {

constexpr double g_dEmpty = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t g_iMaxCachedTexts = 1 << 16;

QString tr(const char* pcText)
{
    return QCoreApplication::translate("ColumnCollector", pcText);
}

MatrixColumn intColumn(const std::vector<double>& vdNumbers)
{
    MatrixColumn column(QMetaType::Int);
    column.reserve(static_cast<int>(vdNumbers.size()));
    for (const double dNumber : vdNumbers) {
        column.appendDouble(dNumber);
    }
    return column;
}

} // namespace

ColumnCollector::ColumnCollector(const TextSource& source, const MissingMarks& marks, std::vector<Rules> vRules,
                                 int iExpectedRows)
    : m_oSource(source)
    , m_oMarks(marks)
    , m_vColumns(vRules.size())
    , m_iExpectedRows(iExpectedRows)
{
    for (std::size_t i = 0; i < vRules.size(); ++i) {
        Column& column = m_vColumns[i];
        column.m_oRules = vRules[i];
        column.m_bNumber = !vRules[i].m_bForceText;
        column.m_bWhole = !vRules[i].m_bOnlyDoubles;
        column.m_bTrueFalse = column.m_bYesNo = column.m_bColor = !vRules[i].m_bForceText && column.m_bWhole;
        if (column.m_bNumber) {
            column.m_vdNumbers.reserve(static_cast<std::size_t>(std::max(iExpectedRows, 0)));
        }
    }
}

void ColumnCollector::addCell(int iColumn, std::string_view sCell, qint64 iLine)
{
    Column& column = m_vColumns[static_cast<std::size_t>(iColumn)];
    if (!column.m_bNumber) {
        checkWords(column, sCell);
        return;
    }
    double dValue = 0;
    NumberKind eKind = parseNumber(sCell, column.m_oRules.m_cDecimalMark, dValue);
    if (eKind == NumberKind::LeadingZero && (column.m_oRules.m_bAngle || column.m_oRules.m_bOnlyDoubles)) {
        eKind = NumberKind::Real;
    }
    if (eKind == NumberKind::Whole || eKind == NumberKind::Real) {
        if (std::isnan(dValue)) {
            addMissing(iColumn);
            return;
        }
        column.m_bWhole = column.m_bWhole && eKind == NumberKind::Whole;
        ++column.m_iNumbers;
        column.m_vdNumbers.push_back(dValue);
    } else if (m_oMarks.isMissingNumber(sCell)) {
        addMissing(iColumn);
    } else {
        column.m_bLeadingZero = eKind == NumberKind::LeadingZero;
        addNoNumber(column, sCell, iLine);
    }
}

void ColumnCollector::addNoNumber(Column& column, std::string_view sCell, qint64 iLine)
{
    column.m_bNumber = false;
    column.m_iTextLine = iLine;
    column.m_sText = m_oSource.text(sCell.substr(0, 60));
    column.m_vdNumbers = {};
    if (column.m_iNumbers > 0) {
        column.m_bTrueFalse = column.m_bYesNo = column.m_bColor = false;
    }
    checkWords(column, sCell);
}

void ColumnCollector::checkWords(Column& column, std::string_view sCell) const
{
    if (column.m_bTrueFalse || column.m_bYesNo || column.m_bColor) {
        const bool bEmpty = m_oMarks.isMissingNumber(sCell);
        column.m_bTrueFalse =
            column.m_bTrueFalse && (bEmpty || equalsNoCase(sCell, "true") || equalsNoCase(sCell, "false"));
        column.m_bYesNo = column.m_bYesNo && (bEmpty || equalsNoCase(sCell, "yes") || equalsNoCase(sCell, "no"));
        column.m_bColor = column.m_bColor && (bEmpty || isColorText(sCell));
    }
}

void ColumnCollector::addMissing(int iColumn)
{
    Column& column = m_vColumns[static_cast<std::size_t>(iColumn)];
    if (column.m_bNumber) {
        ++column.m_iMissing;
        column.m_vdNumbers.push_back(g_dEmpty);
    }
}

void ColumnCollector::decideTypes()
{
    for (Column& column : m_vColumns) {
        column.m_bSecondPass = !column.m_bNumber;
        if (column.m_bNumber) {
            column.m_eType = column.m_bWhole && column.m_iNumbers > 0 ? QMetaType::Int : QMetaType::Double;
        } else if (column.m_bTrueFalse || column.m_bYesNo) {
            column.m_eType = QMetaType::Bool;
        } else {
            column.m_eType = column.m_bColor ? QMetaType::QColor : QMetaType::QString;
        }
        if (column.m_bSecondPass) {
            column.m_iMissing = 0;
            column.m_oTexts = MatrixColumn(column.m_eType);
            column.m_oTexts.reserve(m_iRows);
        }
    }
}

bool ColumnCollector::needsSecondPass() const
{
    return std::any_of(m_vColumns.begin(), m_vColumns.end(), [](const Column& column) { return column.m_bSecondPass; });
}

void ColumnCollector::addText(int iColumn, std::string_view sCell, bool bStable)
{
    Column& column = m_vColumns[static_cast<std::size_t>(iColumn)];
    const bool bMissing =
        column.m_eType == QMetaType::QString ? m_oMarks.isMissingText(sCell) : m_oMarks.isMissingNumber(sCell);
    if (bMissing) {
        addMissingText(iColumn);
    } else if (column.m_eType == QMetaType::Bool) {
        column.m_oTexts.appendValue(equalsNoCase(sCell, "true") || equalsNoCase(sCell, "yes"));
    } else if (column.m_eType == QMetaType::QColor) {
        column.m_oTexts.appendValue(QColor(QLatin1String(sCell.data(), static_cast<qsizetype>(sCell.size()))));
    } else if (const auto it = column.m_mTexts.find(sCell); it != column.m_mTexts.end()) {
        column.m_oTexts.appendText(it->second);
    } else {
        const QString sText = m_oSource.text(sCell);
        column.m_oTexts.appendText(sText);
        if (bStable && column.m_mTexts.size() < g_iMaxCachedTexts) {
            column.m_mTexts.emplace(sCell, sText);
        }
    }
}

void ColumnCollector::addMissingText(int iColumn)
{
    Column& column = m_vColumns[static_cast<std::size_t>(iColumn)];
    ++column.m_iMissing;
    column.m_oTexts.resize(column.m_oTexts.size() + 1);
}

std::vector<double>* ColumnCollector::numbers(int iColumn)
{
    Column& column = m_vColumns[static_cast<std::size_t>(iColumn)];
    return column.m_bNumber ? &column.m_vdNumbers : nullptr;
}

MatrixColumn ColumnCollector::takeColumn(int iColumn)
{
    Column& column = m_vColumns[static_cast<std::size_t>(iColumn)];
    if (column.m_bSecondPass) {
        return std::move(column.m_oTexts);
    }
    if (column.m_eType == QMetaType::Int) {
        MatrixColumn ints = intColumn(column.m_vdNumbers);
        column.m_vdNumbers = {};
        return ints;
    }
    if (column.m_vdNumbers.capacity() > column.m_vdNumbers.size() + column.m_vdNumbers.size() / 8) {
        column.m_vdNumbers.shrink_to_fit();
    }
    return MatrixColumn::fromDoubles(std::move(column.m_vdNumbers));
}

QString ColumnCollector::typeName(int iColumn) const
{
    switch (m_vColumns[static_cast<std::size_t>(iColumn)].m_eType) {
    case QMetaType::Int:
        return tr("whole number");
    case QMetaType::Bool:
        return tr("yes/no");
    case QMetaType::QColor:
        return tr("colour");
    case QMetaType::QString:
        return tr("text");
    default:
        return tr("number");
    }
}

void ColumnCollector::remarkTexts(int iColumn, const QString& sName, ImportReport& report) const
{
    const Column& column = m_vColumns[static_cast<std::size_t>(iColumn)];
    if (column.m_eType != QMetaType::QString) {
        return;
    }
    if (column.m_bLeadingZero) {
        report.addRemark(
            column.m_iTextLine,
            tr("Column \"%1\" is text: the zeros in front of \"%2\" make it a label.").arg(sName, column.m_sText));
    } else if (column.m_iNumbers > 0) {
        report.addRemark(column.m_iTextLine,
                         tr("Column \"%1\" is text: \"%2\" is no number that can be held exactly, after %3 numbers.")
                             .arg(sName, column.m_sText)
                             .arg(column.m_iNumbers));
    }
}

} // namespace gkHost
