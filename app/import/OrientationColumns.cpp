#include "OrientationColumns.h"

#include "OrientationText.h"

#include <QCoreApplication>

#include <cmath>
#include <limits>
#include <optional>

namespace gkHost {

using gkBase::MatrixColumn;
using Convention = OrientationConvention;

namespace {

constexpr double g_dEmpty = std::numeric_limits<double>::quiet_NaN();

QString tr(const char* pcText)
{
    return QCoreApplication::translate("OrientationRecognizer", pcText);
}

bool hasColumn(const ImportTable& table, int iColumn)
{
    return iColumn >= 0 && iColumn < table.columnCount();
}

ImportColumn& columnAt(ImportTable& table, int iColumn)
{
    return table.m_vColumns[static_cast<std::size_t>(iColumn)];
}

const ImportColumn& columnAt(const ImportTable& table, int iColumn)
{
    return table.m_vColumns[static_cast<std::size_t>(iColumn)];
}

bool isMissingAngle(double dValue)
{
    return !std::isfinite(dValue) || dValue == 99999.0;
}

/// Charts read angles as doubles; the numbers stay what they are.
void makeDoubles(ImportColumn& column)
{
    if (column.m_oValues.type() != QMetaType::Double) {
        column.m_oValues = MatrixColumn::fromDoubles(column.m_oValues.numbers());
    }
    column.m_sCategory = QStringLiteral("orientation");
    column.m_sUnit = QStringLiteral("deg");
}

void checkAngles(ImportTable& table, int iColumn, ImportReport& report)
{
    ImportColumn& column = columnAt(table, iColumn);
    makeDoubles(column);
    const auto vdAngles = column.m_oValues.doubles();
    for (int i = 0; i < static_cast<int>(vdAngles.size()); ++i) {
        const double dAngle = vdAngles[static_cast<std::size_t>(i)];
        if (!isMissingAngle(dAngle) && (dAngle < 0 || dAngle > 90)) {
            report.addRemark(
                table.m_oLines.line(i),
                tr("%1 in \"%2\" is not between 0 and 90 degrees; it is kept.").arg(dAngle).arg(column.m_sName));
        }
    }
}

void checkAzimuths(ImportTable& table, int iColumn, ImportReport& report)
{
    ImportColumn& column = columnAt(table, iColumn);
    makeDoubles(column);
    const auto vdAzimuths = column.m_oValues.mutableDoubles();
    for (int i = 0; i < static_cast<int>(vdAzimuths.size()); ++i) {
        double& dAzimuth = vdAzimuths[static_cast<std::size_t>(i)];
        if (dAzimuth == 360) {
            dAzimuth = 0;
            report.addRepair(table.m_oLines.line(i), tr("360 in \"%1\" became 0.").arg(column.m_sName));
        } else if (!isMissingAngle(dAzimuth) && (dAzimuth < 0 || dAzimuth > 360)) {
            report.addRemark(
                table.m_oLines.line(i),
                tr("%1 in \"%2\" is not between 0 and 360 degrees; it is kept.").arg(dAzimuth).arg(column.m_sName));
        }
    }
}

int appendAngles(ImportTable& table, const QString& sName, std::vector<double> vdValues)
{
    ImportColumn column;
    column.m_sName = table.uniqueName(sName);
    column.m_sUnit = QStringLiteral("deg");
    column.m_sCategory = QStringLiteral("orientation");
    column.m_oValues = MatrixColumn::fromDoubles(std::move(vdValues));
    table.m_vColumns.push_back(std::move(column));
    return table.columnCount() - 1;
}

/// Makes the strike a view on a new azimuth column. A strike outside 0 … 360 names the same direction as the one
/// inside; the link can only show that one.
void linkStrike(ImportTable& table, int iStrike, ImportReport& report)
{
    makeDoubles(columnAt(table, iStrike));
    const auto vdStrikes = columnAt(table, iStrike).m_oValues.doubles();
    std::vector<double> vdAzimuths(vdStrikes.size(), g_dEmpty);
    for (int i = 0; i < static_cast<int>(vdStrikes.size()); ++i) {
        const double dStrike = vdStrikes[static_cast<std::size_t>(i)];
        if (isMissingAngle(dStrike)) {
            continue;
        }
        double dAzimuth = std::fmod(dStrike + 90, 360);
        dAzimuth = dAzimuth < 0 ? dAzimuth + 360 : dAzimuth;
        vdAzimuths[static_cast<std::size_t>(i)] = dAzimuth;
        if (dStrike < 0 || dStrike >= 360) {
            report.addRepair(
                table.m_oLines.line(i),
                tr("Strike %1 was read as %2.").arg(dStrike).arg(dAzimuth < 90 ? dAzimuth + 270 : dAzimuth - 90));
        }
    }
    // The tree deletes an attribute of this name together with its strike.
    const int iAzimuth = appendAngles(table, QStringLiteral("azimuth"), std::move(vdAzimuths));
    ImportColumn& strike = columnAt(table, iStrike);
    strike.m_iStrikeOf = iAzimuth;
    strike.m_oValues = MatrixColumn(QMetaType::Double);
}

std::optional<AngleAndAzimuth> pairReading(const QString& sText, Convention eConvention)
{
    const std::optional<AnglePair> oPair = anglePair(sText);
    if (!oPair) {
        return std::nullopt;
    }
    const bool bAngleFirst = eConvention == Convention::DipAzimuthText || eConvention == Convention::PlungeTrendText;
    const double dAngle = bAngleFirst ? oPair->m_dFirst : oPair->m_dSecond;
    const double dDirection = bAngleFirst ? oPair->m_dSecond : oPair->m_dFirst;
    if (dAngle > 90 || dDirection > 360) {
        return std::nullopt;
    }
    const double dTurn = eConvention == Convention::StrikeDipText ? 90 : 0;
    return AngleAndAzimuth{dAngle, std::fmod(dDirection + dTurn, 360)};
}

/// The angle is NaN where the text gives a direction only.
std::optional<AngleAndAzimuth> reading(const QString& sText, Convention eConvention)
{
    if (eConvention == Convention::QuadrantPlane) {
        return quadrantPlane(sText);
    }
    if (eConvention != Convention::QuadrantDirection) {
        return pairReading(sText, eConvention);
    }
    const std::optional<Direction> oDirection = quadrantDirection(sText);
    return oDirection
               ? std::optional(AngleAndAzimuth{oDirection->m_odPlunge.value_or(g_dEmpty), oDirection->m_dAzimuth})
               : std::nullopt;
}

} // namespace

bool isAngleColumn(const ImportColumn& column)
{
    const QString sUnit = column.m_sUnit.toLower();
    const bool bDegrees =
        sUnit.isEmpty() || sUnit.startsWith(QStringLiteral("deg")) || sUnit == u"°" || sUnit == u"dega";
    const QMetaType::Type eType = column.m_oValues.type();
    return bDegrees && (eType == QMetaType::Double || eType == QMetaType::Int);
}

QString describeColumns(const ImportTable& table, const OrientationProposal& proposal)
{
    QStringList lNames;
    for (const int iColumn : {proposal.m_iDirectionColumn, proposal.m_iAngleColumn}) {
        if (hasColumn(table, iColumn)) {
            lNames << columnAt(table, iColumn).m_sName;
        }
    }
    return lNames.join(QStringLiteral(", "));
}

QString reasonAgainst(const ImportTable& table, const OrientationProposal& proposal)
{
    const bool bText = proposal.m_eConvention >= Convention::QuadrantPlane;
    const bool bAngle = !bText && proposal.m_eConvention != Convention::AzimuthOnly;
    if (!hasColumn(table, proposal.m_iDirectionColumn) || (bAngle && !hasColumn(table, proposal.m_iAngleColumn))) {
        return tr("its columns do not exist.");
    }
    const ImportColumn& direction = columnAt(table, proposal.m_iDirectionColumn);
    if (direction.m_iStrikeOf != -1) {
        return tr("\"%1\" is a linked strike already.").arg(direction.m_sName);
    }
    if (bText) {
        return direction.m_oValues.type() == QMetaType::QString ? QString()
                                                                : tr("\"%1\" holds no text.").arg(direction.m_sName);
    }
    if (!isAngleColumn(direction)) {
        return tr("\"%1\" holds no numbers in degrees.").arg(direction.m_sName);
    }
    if (bAngle && !isAngleColumn(columnAt(table, proposal.m_iAngleColumn))) {
        return tr("\"%1\" holds no numbers in degrees.").arg(columnAt(table, proposal.m_iAngleColumn).m_sName);
    }
    return bAngle && proposal.m_iAngleColumn == proposal.m_iDirectionColumn ? tr("both angles are the same column.")
                                                                            : QString();
}

void markNumbers(ImportTable& table, const OrientationProposal& proposal, ImportReport& report)
{
    if (proposal.m_eConvention != Convention::AzimuthOnly) {
        checkAngles(table, proposal.m_iAngleColumn, report);
    }
    if (proposal.m_eConvention == Convention::StrikeAndDip) {
        linkStrike(table, proposal.m_iDirectionColumn, report);
    } else {
        checkAzimuths(table, proposal.m_iDirectionColumn, report);
    }
}

void convertTexts(ImportTable& table, const OrientationProposal& proposal, ImportReport& report)
{
    const MatrixColumn& oTexts = columnAt(table, proposal.m_iDirectionColumn).m_oValues;
    const int iRows = oTexts.size();
    std::vector<double> vdAngles(static_cast<std::size_t>(iRows), g_dEmpty);
    std::vector<double> vdAzimuths(static_cast<std::size_t>(iRows), g_dEmpty);
    bool bAnyAngle = false;
    for (int i = 0; i < iRows; ++i) {
        if (oTexts.isMissing(i)) {
            continue;
        }
        if (const auto oReading = reading(oTexts.text(i), proposal.m_eConvention)) {
            vdAngles[static_cast<std::size_t>(i)] = oReading->m_dAngle;
            vdAzimuths[static_cast<std::size_t>(i)] = oReading->m_dAzimuth;
            bAnyAngle = bAnyAngle || std::isfinite(oReading->m_dAngle);
        } else {
            report.addRemark(table.m_oLines.line(i),
                             tr("\"%1\" cannot be read as an orientation; the angles are empty.").arg(oTexts.text(i)));
        }
    }
    const bool bLine = proposal.m_eConvention == Convention::QuadrantDirection ||
                       proposal.m_eConvention == Convention::PlungeTrendText;
    if (bAnyAngle || !bLine) {
        appendAngles(table, bLine ? QStringLiteral("Plunge") : QStringLiteral("Dip"), std::move(vdAngles));
    }
    const QString sAzimuth =
        bLine ? (bAnyAngle ? QStringLiteral("Trend") : QStringLiteral("Azimuth")) : QStringLiteral("Dip Azimuth");
    appendAngles(table, sAzimuth, std::move(vdAzimuths));
}

} // namespace gkHost
