#include "CellChange.h"

#include "CellText.h"
#include "Curve.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "RowRuns.h"
#include "UnitManager.h"

#include <QColor>
#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>

namespace gkBase {

namespace {

QString message(const char* szText)
{
    return QCoreApplication::translate("CellChange", szText);
}

bool isNumeric(QMetaType::Type eType)
{
    return eType == QMetaType::Double || eType == QMetaType::Int;
}

bool isFlagText(const QString& sText)
{
    const QString sFlag = sText.trimmed().toLower();
    return sFlag == QLatin1String("true") || sFlag == QLatin1String("false") || sFlag == QLatin1String("1") ||
           sFlag == QLatin1String("0");
}

/// Rounded for an int column, NaN when it cannot hold the number.
double storable(double dModel, bool bInteger)
{
    if (!bInteger)
        return dModel;
    const double dRounded = std::floor(dModel + 0.5);
    const bool bFits =
        dRounded >= std::numeric_limits<int>::min() && dRounded <= double(std::numeric_limits<int>::max());
    return bFits ? dRounded : g_dEmptyCell;
}

/// Gathers the new values of a number column.
class NumberCells
{
public:
    NumberCells(QMetaType::Type eType, std::size_t iExpected)
        : m_bInteger(eType == QMetaType::Int)
    {
        m_oChanged.m_viRecords.reserve(iExpected);
        m_vdValues.reserve(iExpected);
    }

    void add(int iRecord, double dOld, double dNew)
    {
        const double dStored = storable(dNew, m_bInteger);
        if (std::isnan(dStored) || dStored == dOld)
            return;
        m_oChanged.m_viRecords.push_back(iRecord);
        m_vdValues.push_back(dStored);
    }

    ChangedCells take()
    {
        if (m_bInteger) {
            m_oChanged.m_oValues = MatrixColumn(QMetaType::Int, static_cast<int>(m_vdValues.size()));
            for (std::size_t i = 0; i < m_vdValues.size(); ++i)
                m_oChanged.m_oValues.setValue(static_cast<int>(i), static_cast<int>(m_vdValues[i]));
        } else {
            m_oChanged.m_oValues = MatrixColumn::fromDoubles(std::move(m_vdValues));
        }
        return std::move(m_oChanged);
    }

private:
    bool m_bInteger;
    ChangedCells m_oChanged;
    std::vector<double> m_vdValues;
};

ChangedCells interpolated(const MatrixColumn& oColumn, const std::vector<int>& viRecords)
{
    NumberCells oCells(oColumn.type(), 0);
    if (!isNumeric(oColumn.type()))
        return ChangedCells();
    std::vector<double> vdCells;
    for (const RowRun& oRun : runsOfRows(viRecords)) {
        // The cells beside a run serve as values only: a gap that reaches past the end of a run is not filled.
        const int iFirst = std::max(oRun.iFirst - 1, 0);
        const int iLast = std::min(oRun.iLast + 1, oColumn.size() - 1);
        vdCells.clear();
        for (int iRecord = iFirst; iRecord <= iLast; ++iRecord)
            vdCells.push_back(oColumn.number(iRecord));
        if (fillGaps(vdCells) == 0)
            continue;
        for (int iRecord = iFirst; iRecord <= iLast; ++iRecord) {
            const double dFilled = vdCells[static_cast<std::size_t>(iRecord - iFirst)];
            if (isMissing(oColumn.number(iRecord)) && !isMissing(dFilled))
                oCells.add(iRecord, g_dEmptyCell, dFilled);
        }
    }
    return oCells.take();
}

/// The records whose cell differs from the value (one cell of the same type). Cells past the end are missing.
std::vector<int> differing(const MatrixColumn& oColumn, const MatrixColumn& oValue, const std::vector<int>& viRecords)
{
    std::vector<int> viChanged;
    viChanged.reserve(viRecords.size());
    const auto addWhere = [&](auto isEqual) {
        std::copy_if(viRecords.begin(), viRecords.end(), std::back_inserter(viChanged),
                     [&](int iRecord) { return !isEqual(iRecord); });
    };
    if (oValue.isMissing(0)) {
        addWhere([&](int iRecord) { return oColumn.isMissing(iRecord); });
    } else if (oColumn.type() == QMetaType::QString) {
        const auto& vsTexts = oColumn.texts();
        const auto itText = std::find(vsTexts.begin(), vsTexts.end(), oValue.text(0));
        const int iCode = itText == vsTexts.end() ? -1 : static_cast<int>(itText - vsTexts.begin());
        const std::span<const std::int32_t> viCodes = oColumn.textCodes();
        addWhere([&](int iRecord) {
            return iCode >= 0 && iRecord < oColumn.size() && viCodes[static_cast<std::size_t>(iRecord)] == iCode;
        });
    } else if (oColumn.type() == QMetaType::QColor) {
        const QRgb uColor = oValue.colors()[0];
        addWhere([&](int iRecord) {
            return iRecord < oColumn.size() && oColumn.colors()[static_cast<std::size_t>(iRecord)] == uColor;
        });
    } else {
        const double dValue = oValue.number(0);
        addWhere([&](int iRecord) { return oColumn.number(iRecord) == dValue; });
    }
    return viChanged;
}

} // namespace

CellChange::CellChange(Method eMethod, const QVariant& qOperand)
    : m_eMethod(eMethod)
    , m_qOperand(qOperand)
{
}

QString CellChange::error(QMetaType::Type eType) const
{
    if (!CellModification::isApplicable(m_eMethod, eType))
        return message("Only numbers can be calculated.");
    if (!CellModification::needsOperand(m_eMethod))
        return {};
    const QString sOperand = m_qOperand.toString();
    if (eType == QMetaType::QString)
        return sOperand.isEmpty() ? message("Enter a text, or choose to empty the cells.") : QString();
    if (eType == QMetaType::QColor)
        return QColor::isValidColor(sOperand.trimmed()) ? QString()
                                                        : message("Enter a colour as #rrggbb or by its name.");
    if (eType == QMetaType::Bool)
        return isFlagText(sOperand) ? QString() : message("Enter true or false.");

    if (sOperand.trimmed().isEmpty())
        return message("Enter a number.");
    const double dOperand = CellText::number(sOperand).value_or(g_dEmptyCell);
    if (!std::isfinite(dOperand))
        return message("“%1” is no number.").arg(sOperand.trimmed());
    if (m_eMethod == CellModification::Divide && dOperand == 0.0)
        return message("Cells cannot be divided by 0.");
    if (m_eMethod == CellModification::Set && std::isnan(storable(dOperand, eType == QMetaType::Int)))
        return message("%1 is beyond the range of whole numbers.").arg(sOperand.trimmed());
    return {};
}

ChangedCells CellChange::changedCells(const MatrixData& oAttribute, const std::vector<int>& viRecords) const
{
    switch (m_eMethod) {
    case CellModification::Interpolate:
        return interpolated(oAttribute.column(), viRecords);
    case CellModification::Clear:
        return written(oAttribute, QVariant(), viRecords);
    case CellModification::Set:
        return written(oAttribute, CellText::toValue(oAttribute, m_qOperand), viRecords);
    default:
        return calculated(oAttribute, viRecords);
    }
}

ChangedCells CellChange::calculated(const MatrixData& oAttribute, const std::vector<int>& viRecords) const
{
    const double dOperand = CellText::number(m_qOperand.toString()).value_or(g_dEmptyCell);
    const MatrixColumn& oColumn = oAttribute.column();
    if (!std::isfinite(dOperand) || !isNumeric(oColumn.type()))
        return ChangedCells();
    // Whole numbers are shown as they are stored, in whatever unit.
    const auto poUnits = oColumn.type() == QMetaType::Double ? oAttribute.unitManager() : nullptr;
    NumberCells oCells(oColumn.type(), viRecords.size());
    for (const int iRecord : viRecords) {
        const double dOld = oColumn.number(iRecord);
        const double dShown = poUnits ? poUnits->convertModelToDisplay(dOld) : dOld;
        const double dNew = CellModification::calculate(m_eMethod, dShown, dOperand);
        // Adding 0 must not alter a value by converting it there and back.
        if (isMissing(dNew) || dNew == dShown)
            continue;
        oCells.add(iRecord, dOld, poUnits ? poUnits->convertDisplayToModel(dNew) : dNew);
    }
    return oCells.take();
}

ChangedCells CellChange::written(const MatrixData& oAttribute, const QVariant& qValue,
                                 const std::vector<int>& viRecords) const
{
    const MatrixColumn& oColumn = oAttribute.column();
    ChangedCells oChanged;
    // A text that is no colour changes nothing; it does not empty the cells.
    if (!qValue.isValid() && m_eMethod == CellModification::Set && !m_qOperand.toString().isEmpty())
        return oChanged;
    oChanged.m_oValues = MatrixColumn(oColumn.type(), 1);
    oChanged.m_oValues.setValue(0, qValue);
    oChanged.m_viRecords = differing(oColumn, oChanged.m_oValues, viRecords);
    return oChanged;
}

} // namespace gkBase
