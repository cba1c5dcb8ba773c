#include "ScatLineModel.h"

#include "CrossPlotGeometry.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "NumberWithUnit.h"
#include "ScatScenarios.h"
#include "UnitManager.h"
#include "UnitText.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>

namespace gkBase {

namespace {

using Line = DepthLineField::Line;

constexpr double g_dSteepestDip = 90.0;
constexpr double g_dFullCircle = 360.0;
const QPointF g_oNoOrientation(-1.0, -1.0);

/// "Crestal" for "Crestal Plane".
QString shortType(DepthLineField::DataType eType)
{
    return DepthLineField::type(eType).section(QLatin1Char(' '), 0, 0);
}

/// A number of many digits without the noise that converting leaves.
QString exactNumber(double dValue)
{
    constexpr int iCertainDigits = 15;
    return QString::number(dValue, 'g', iCertainDigits);
}

std::optional<double> angle(const QString& sText, double dLargest)
{
    const auto oNumber = NumberWithUnit::parse(sText);
    const bool bAngle = oNumber && (oNumber->m_sUnit.isEmpty() || oNumber->m_sUnit == QStringLiteral("°"));
    // Negated, because NaN compares false.
    if (!bAngle || !(oNumber->m_dValue >= 0.0 && oNumber->m_dValue <= dLargest))
        return std::nullopt;
    return oNumber->m_dValue;
}

/// Dip and dip azimuth with a stroke or blanks between them; an empty text takes the orientation away.
bool changeOrientation(Line& line, const QString& sText)
{
    static const QRegularExpression separator(QStringLiteral("\\s*/\\s*|\\s+"));
    if (sText.trimmed().isEmpty()) {
        line.m_oOrientation = g_oNoOrientation;
        return true;
    }
    const QStringList lParts = sText.trimmed().split(separator);
    const auto oDip = angle(lParts.front(), g_dSteepestDip);
    const auto oAzimuth = angle(lParts.back(), g_dFullCircle);
    if (lParts.size() != 2 || !oDip || !oAzimuth)
        return false;
    line.m_oOrientation = {*oDip, *oAzimuth < g_dFullCircle ? *oAzimuth : 0.0};
    return true;
}

bool changeType(Line& line, const QString& sText)
{
    const DepthLineField::DataType eType = DepthLineField::type(sText);
    if (eType > DepthLineField::Fault)
        return false;
    line.m_eType = eType;
    return true;
}

bool changeColor(Line& line, const QVariant& qValue)
{
    const QColor oColor =
        qValue.typeId() == QMetaType::QColor ? qValue.value<QColor>() : QColor(qValue.toString().trimmed());
    if (!oColor.isValid())
        return false;
    line.m_oColor = oColor;
    return true;
}

} // namespace

ScatLineModel::ScatLineModel(ScatScenarios* pqScenarios, QObject* pqParent)
    : QAbstractTableModel(pqParent)
    , m_pqScenarios(pqScenarios)
{
    if (!pqScenarios)
        return;
    connect(pqScenarios, &ScatScenarios::activeChanged, this, &ScatLineModel::resetLines);
    connect(pqScenarios, &ScatScenarios::linesChanged, this, &ScatLineModel::updateLines);
    connect(pqScenarios, &QObject::destroyed, this, &ScatLineModel::resetLines);
    m_viLines = linesByDepth();
}

void ScatLineModel::setDepthAttribute(const MatrixData* poDepth)
{
    m_oDepth = poDepth;
    emit headerDataChanged(Qt::Horizontal, DepthColumn, DepthColumn);
    if (rowCount() > 0)
        emit dataChanged(index(0, DepthColumn), index(rowCount() - 1, DepthColumn));
}

const DepthLineField* ScatLineModel::field() const
{
    return m_pqScenarios ? m_pqScenarios->lines() : nullptr;
}

// ---- rows -----------------------------------------------------------------------------------------------------------

std::vector<int> ScatLineModel::linesByDepth() const
{
    return field() ? field()->linesByDepth() : std::vector<int>();
}

int ScatLineModel::lineAt(int iRow) const
{
    return iRow >= 0 && iRow < rowCount() ? m_viLines[static_cast<std::size_t>(iRow)] : -1;
}

int ScatLineModel::rowOf(int iLine) const
{
    const auto it = std::find(m_viLines.begin(), m_viLines.end(), iLine);
    return it == m_viLines.end() ? -1 : static_cast<int>(it - m_viLines.begin());
}

Line ScatLineModel::line(int iRow) const
{
    const int iLine = lineAt(iRow);
    return iLine >= 0 && field() ? field()->line(iLine) : Line();
}

void ScatLineModel::resetLines()
{
    beginResetModel();
    m_viLines = linesByDepth();
    endResetModel();
}

void ScatLineModel::updateLines()
{
    std::vector<int> viLines = linesByDepth();
    if (viLines.size() != m_viLines.size())
        return resetLines();
    if (viLines != m_viLines)
        reorder(std::move(viLines));
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void ScatLineModel::reorder(std::vector<int> viLines)
{
    // As many lines as before are the same lines.
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList lOld = persistentIndexList();
    const std::vector<int> viOld = std::exchange(m_viLines, std::move(viLines));
    QModelIndexList lNew;
    for (const QModelIndex& old : lOld)
        lNew << index(rowOf(viOld[static_cast<std::size_t>(old.row())]), old.column());
    changePersistentIndexList(lOld, lNew);
    emit layoutChanged({}, VerticalSortHint);
}

int ScatLineModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_viLines.size());
}

int ScatLineModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

// ---- cells ----------------------------------------------------------------------------------------------------------

QString ScatLineModel::shownText(const Line& line, int iColumn) const
{
    switch (iColumn) {
    case NameColumn:
        return line.m_sName;
    case TypeColumn:
        return shortType(line.m_eType);
    case DepthColumn:
        return m_oDepth ? displayNumber(m_oDepth.get(), line.m_dDepth) : QString::number(line.m_dDepth, 'f', 2);
    case OrientationColumn:
        return lineOrientationText(line.m_oOrientation);
    default:
        return {};
    }
}

QString ScatLineModel::editedText(const Line& line, int iColumn) const
{
    switch (iColumn) {
    case TypeColumn:
        return DepthLineField::type(line.m_eType);
    case DepthColumn:
        return exactNumber(m_oDepth ? m_oDepth->unitManager()->convertModelToDisplay(line.m_dDepth) : line.m_dDepth);
    case OrientationColumn:
        return lineOrientationText(line.m_oOrientation).isEmpty()
                   ? QString()
                   : exactNumber(line.m_oOrientation.x()) + QLatin1Char('/') + exactNumber(line.m_oOrientation.y());
    case ColorColumn:
        return MatrixData::colorHexaString(line.m_oColor);
    default:
        return shownText(line, iColumn);
    }
}

QString ScatLineModel::toolTip(const Line& line, int iColumn) const
{
    const QString sUnit = displayUnit(m_oDepth.get());
    const QString sDepth = (shownText(line, DepthColumn) + QLatin1Char(' ') + sUnit).trimmed();
    QString sLine = tr("%1, %2 at %3").arg(line.m_sName, DepthLineField::type(line.m_eType), sDepth);
    if (const QString sOrientation = editedText(line, OrientationColumn); !sOrientation.isEmpty())
        sLine += QStringLiteral(", ") + sOrientation;
    if (iColumn == ColorColumn)
        sLine += QStringLiteral(", ") + editedText(line, ColorColumn);
    // Names come from files and are no rich text.
    return QStringLiteral("<p>%1</p><p>%2</p>")
        .arg(sLine.toHtmlEscaped(), tr("A double click centres the tracks here. F2, Enter or a click on the selected "
                                       "line edits the cell, Delete removes the line."));
}

QVariant ScatLineModel::data(const QModelIndex& index, int iRole) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !field() || lineAt(index.row()) >= field()->count())
        return {};
    const Line oLine = line(index.row());
    switch (iRole) {
    case Qt::DisplayRole:
        return shownText(oLine, index.column());
    case Qt::EditRole:
        return editedText(oLine, index.column());
    case Qt::ToolTipRole:
        return toolTip(oLine, index.column());
    case Qt::AccessibleTextRole:
        return index.column() == NameColumn ? shownText(oLine, NameColumn) : editedText(oLine, index.column());
    case Qt::TextAlignmentRole:
        if (index.column() == DepthColumn || index.column() == OrientationColumn)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

bool ScatLineModel::changeDepth(Line& line, const QString& sText) const
{
    const auto oNumber = NumberWithUnit::parse(sText);
    const auto oDepth =
        oNumber ? oNumber->modelValue(m_oDepth ? m_oDepth->unitManager().get() : nullptr) : std::optional<double>();
    if (!oDepth || isMissing(*oDepth))
        return false;
    line.m_dDepth = *oDepth;
    return true;
}

bool ScatLineModel::changeLine(Line& line, int iColumn, const QVariant& qValue) const
{
    switch (iColumn) {
    case NameColumn:
        line.m_sName = qValue.toString();
        return true;
    case TypeColumn:
        return changeType(line, qValue.toString());
    case DepthColumn:
        return changeDepth(line, qValue.toString());
    case OrientationColumn:
        return changeOrientation(line, qValue.toString());
    default:
        return changeColor(line, qValue);
    }
}

bool ScatLineModel::setData(const QModelIndex& index, const QVariant& qValue, int iRole)
{
    if (iRole != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid) || !field())
        return false;
    Line oLine = line(index.row());
    // An untouched text must not cost digits.
    if (qValue.toString() == editedText(oLine, index.column()))
        return true;
    if (!changeLine(oLine, index.column(), qValue))
        return false;
    const std::array<QString, ColumnCount> vTexts = {
        tr("Rename Line: %1"), tr("Change Type of Line: %1"), tr("Change Depth of Line: %1"),
        tr("Change Orientation of Line: %1"), tr("Change Colour of Line: %1")};
    const QString sValue =
        index.column() == ColorColumn ? editedText(oLine, ColorColumn) : shownText(oLine, index.column());
    m_pqScenarios->setLine(lineAt(index.row()), oLine,
                           vTexts[static_cast<std::size_t>(index.column())].arg(sValue).trimmed());
    return true;
}

QVariant ScatLineModel::headerData(int iSection, Qt::Orientation eOrientation, int iRole) const
{
    if (eOrientation != Qt::Horizontal || iSection < 0 || iSection >= ColumnCount)
        return {};
    const std::array<QString, ColumnCount> vTitles = {tr("Name"), tr("Type"), tr("Depth"), tr("Dip/Az."), tr("Col.")};
    const std::array<QString, ColumnCount> vToolTips = {
        tr("Name"), tr("Type of the line, with its look on the tracks"), tr("Depth"),
        tr("Dip and dip azimuth in degrees, for example 30/120"), tr("Colour")};
    const auto i = static_cast<std::size_t>(iSection);
    if (iRole == Qt::ToolTipRole || iRole == Qt::AccessibleTextRole)
        return vToolTips[i];
    if (iRole == Qt::TextAlignmentRole && (iSection == DepthColumn || iSection == OrientationColumn))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (iRole != Qt::DisplayRole)
        return {};
    const QString sUnit = iSection == DepthColumn ? displayUnit(m_oDepth.get()) : QString();
    return sUnit.isEmpty() ? vTitles[i] : QStringLiteral("%1 (%2)").arg(vTitles[i], sUnit);
}

Qt::ItemFlags ScatLineModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? QAbstractTableModel::flags(index) | Qt::ItemIsEditable | Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}

} // namespace gkBase
