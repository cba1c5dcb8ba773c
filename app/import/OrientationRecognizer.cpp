#include "OrientationRecognizer.h"

#include "OrientationColumns.h"
#include "OrientationNames.h"
#include "OrientationText.h"
#include "StrikeLinks.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace gkHost {

namespace {

using Convention = OrientationConvention;
using Conventions = std::vector<Convention>;

constexpr int g_iSampleTexts = 200;

QString tr(const char* pcText)
{
    return QCoreApplication::translate("OrientationRecognizer", pcText);
}

/// A number column with a name that speaks of angles.
struct NamedColumn
{
    int m_iColumn;
    AngleName m_oName;
    bool m_bUsed = false;
};

std::vector<NamedColumn> namedColumns(const ImportTable& table)
{
    std::vector<NamedColumn> vColumns;
    for (int i = 0; i < table.columnCount(); ++i) {
        const ImportColumn& column = table.m_vColumns[static_cast<std::size_t>(i)];
        const AngleName oName = angleName(column.m_sName);
        if (oName.m_eRole != AngleRole::None && isAngleColumn(column) && column.m_iStrikeOf == -1) {
            vColumns.push_back({i, oName});
        }
    }
    return vColumns;
}

/// The first unused column of a role; of the same group when one is given.
NamedColumn* find(std::vector<NamedColumn>& vColumns, AngleRole eRole, const QString* psGroup)
{
    const auto it = std::find_if(vColumns.begin(), vColumns.end(), [&](const NamedColumn& column) {
        return !column.m_bUsed && column.m_oName.m_eRole == eRole && (!psGroup || column.m_oName.m_sGroup == *psGroup);
    });
    return it == vColumns.end() ? nullptr : &*it;
}

struct PairRule
{
    AngleRole m_eAngle;
    AngleRole m_eDirection;
    Convention m_eConvention;
    Conventions m_vAlternatives;
};

const std::vector<PairRule>& pairRules()
{
    using enum Convention;
    static const std::vector<PairRule> vRules = {
        {AngleRole::Dip, AngleRole::DipAzimuth, DipAndAzimuth, {DipAndAzimuth}},
        {AngleRole::Plunge, AngleRole::Trend, PlungeAndTrend, {PlungeAndTrend}},
        {AngleRole::Dip, AngleRole::Azimuth, DipAndAzimuth, {DipAndAzimuth, StrikeAndDip}},
        {AngleRole::Plunge, AngleRole::Azimuth, PlungeAndTrend, {PlungeAndTrend}},
        {AngleRole::Dip, AngleRole::Strike, StrikeAndDip, {StrikeAndDip}},
        {AngleRole::Dip, AngleRole::Trend, PlungeAndTrend, {PlungeAndTrend, DipAndAzimuth}},
        {AngleRole::Angle, AngleRole::Azimuth, DipAndAzimuth, {DipAndAzimuth, PlungeAndTrend, StrikeAndDip}},
    };
    return vRules;
}

void proposePairs(const ImportTable& table, std::vector<NamedColumn>& vColumns, bool bSameGroup,
                  std::vector<OrientationProposal>& vProposals)
{
    for (const PairRule& rule : pairRules()) {
        for (NamedColumn& angle : vColumns) {
            if (angle.m_bUsed || angle.m_oName.m_eRole != rule.m_eAngle) {
                continue;
            }
            NamedColumn* pDirection = find(vColumns, rule.m_eDirection, bSameGroup ? &angle.m_oName.m_sGroup : nullptr);
            if (!pDirection) {
                continue;
            }
            angle.m_bUsed = pDirection->m_bUsed = true;
            const auto name = [&](int i) { return table.m_vColumns[static_cast<std::size_t>(i)].m_sName; };
            vProposals.push_back({rule.m_eConvention, angle.m_iColumn, pDirection->m_iColumn,
                                  tr("The columns are called \"%1\" and \"%2\".")
                                      .arg(name(angle.m_iColumn), name(pDirection->m_iColumn)),
                                  rule.m_vAlternatives});
        }
    }
}

/// How many of the sampled texts can be read in which way.
struct TextCounts
{
    int m_iTexts = 0;
    int m_iPlanes = 0;
    int m_iDirections = 0;
    int m_iNumberedDirections = 0;
    int m_iAzimuthFirst = 0; ///< pairs that cannot have the angle first
    int m_iAngleFirst = 0;
    int m_iPairs = 0;
};

TextCounts countTexts(const gkBase::MatrixColumn& values)
{
    TextCounts counts;
    for (int i = 0; i < values.size() && counts.m_iTexts < g_iSampleTexts; ++i) {
        if (values.isMissing(i)) {
            continue;
        }
        const QString sText = values.text(i);
        ++counts.m_iTexts;
        counts.m_iPlanes += quadrantPlane(sText) ? 1 : 0;
        if (const auto oDirection = quadrantDirection(sText)) {
            ++counts.m_iDirections;
            counts.m_iNumberedDirections += oDirection->m_bWithNumber ? 1 : 0;
        }
        const auto oPair = anglePair(sText);
        if (oPair && oPair->m_dFirst <= 360 && oPair->m_dSecond <= 360) {
            ++counts.m_iPairs;
            const bool bLongFirst = oPair->m_iFirstDigits == 3 && oPair->m_iSecondDigits < 3;
            const bool bLongSecond = oPair->m_iSecondDigits == 3 && oPair->m_iFirstDigits < 3;
            counts.m_iAzimuthFirst += bLongFirst || oPair->m_dFirst > 90 ? 1 : 0;
            counts.m_iAngleFirst += bLongSecond || oPair->m_dSecond > 90 ? 1 : 0;
        }
    }
    return counts;
}

std::optional<Conventions> pairConventions(const TextCounts& counts, AngleRole eRole)
{
    using enum Convention;
    if (counts.m_iAzimuthFirst > 0 && counts.m_iAngleFirst == 0) {
        return eRole == AngleRole::DipAzimuth || eRole == AngleRole::Azimuth
                   ? Conventions{AzimuthDipText, StrikeDipText}
                   : Conventions{StrikeDipText, AzimuthDipText};
    }
    if (counts.m_iAngleFirst > 0 && counts.m_iAzimuthFirst == 0) {
        return eRole == AngleRole::Plunge || eRole == AngleRole::Trend ? Conventions{PlungeTrendText, DipAzimuthText}
                                                                       : Conventions{DipAzimuthText, PlungeTrendText};
    }
    return std::nullopt;
}

void proposeText(int iColumn, const ImportColumn& column, std::vector<OrientationProposal>& vProposals)
{
    const TextCounts counts = countTexts(column.m_oValues);
    const auto mostly = [&counts](int iCount) { return counts.m_iTexts > 0 && 10 * iCount >= 8 * counts.m_iTexts; };
    const AngleRole eRole = angleName(column.m_sName).m_eRole;
    Conventions vConventions;
    if (mostly(counts.m_iPlanes)) {
        vConventions = {Convention::QuadrantPlane};
    } else if (mostly(counts.m_iDirections) && (counts.m_iNumberedDirections > 0 || eRole != AngleRole::None)) {
        vConventions = {Convention::QuadrantDirection};
    } else if (mostly(counts.m_iPairs)) {
        vConventions = pairConventions(counts, eRole).value_or(Conventions());
    }
    if (!vConventions.empty()) {
        vProposals.push_back({vConventions.front(), -1, iColumn,
                              tr("The texts of \"%1\" read like this.").arg(column.m_sName), vConventions});
    }
}

/// Notes the column of a direction that may be the strike or the dip azimuth of a plane.
void collectPlaneDirection(const ImportTable& table, const OrientationProposal& proposal, std::vector<int>& viStrikes,
                           std::vector<int>& viAzimuths)
{
    const int iColumn = proposal.m_iDirectionColumn;
    const AngleRole eRole = angleName(table.m_vColumns[static_cast<std::size_t>(iColumn)].m_sName).m_eRole;
    if (proposal.m_eConvention == Convention::AzimuthOnly && eRole == AngleRole::Strike) {
        viStrikes.push_back(iColumn);
    } else if (proposal.m_eConvention == Convention::DipAndAzimuth ||
               (proposal.m_eConvention == Convention::AzimuthOnly &&
                (eRole == AngleRole::DipAzimuth || eRole == AngleRole::Azimuth))) {
        viAzimuths.push_back(iColumn);
    }
}

} // namespace

std::vector<OrientationProposal> OrientationRecognizer::propose(const ImportTable& table)
{
    std::vector<OrientationProposal> vProposals;
    std::vector<NamedColumn> vColumns = namedColumns(table);
    proposePairs(table, vColumns, true, vProposals);
    proposePairs(table, vColumns, false, vProposals);
    for (const NamedColumn& column : vColumns) {
        // A dip without a direction is no orientation; a direction alone is.
        const AngleRole eRole = column.m_oName.m_eRole;
        const bool bDirection = eRole != AngleRole::Dip && eRole != AngleRole::Plunge && eRole != AngleRole::Angle;
        if (!column.m_bUsed && bDirection) {
            const QString sName = table.m_vColumns[static_cast<std::size_t>(column.m_iColumn)].m_sName;
            vProposals.push_back({Convention::AzimuthOnly,
                                  -1,
                                  column.m_iColumn,
                                  tr("The column is called \"%1\".").arg(sName),
                                  {Convention::AzimuthOnly}});
        }
    }
    for (int i = 0; i < table.columnCount(); ++i) {
        const ImportColumn& column = table.m_vColumns[static_cast<std::size_t>(i)];
        if (column.m_oValues.type() == QMetaType::QString) {
            proposeText(i, column, vProposals);
        }
    }
    return vProposals;
}

void OrientationRecognizer::applyOrientation(ImportTable& table, const std::vector<OrientationProposal>& vProposals,
                                             ImportReport& report)
{
    std::vector<int> viStrikes;
    std::vector<int> viAzimuths;
    for (const OrientationProposal& proposal : vProposals) {
        const QString sColumns = describeColumns(table, proposal);
        if (const QString sReason = reasonAgainst(table, proposal); !sReason.isEmpty()) {
            report.addRemark(0, tr("%1 was not applied: %2").arg(conventionName(proposal.m_eConvention), sReason));
            continue;
        }
        report.addAssumption(tr("Orientation"), tr("%1 (%2)").arg(conventionName(proposal.m_eConvention), sColumns));
        if (proposal.m_eConvention >= Convention::QuadrantPlane) {
            convertTexts(table, proposal, report);
        } else {
            markNumbers(table, proposal, report);
            collectPlaneDirection(table, proposal, viStrikes, viAzimuths);
        }
    }
    linkAgreeingStrikes(table, viStrikes, viAzimuths, report);
}

QString OrientationRecognizer::conventionName(OrientationConvention eConvention)
{
    switch (eConvention) {
    case Convention::DipAndAzimuth:
        return tr("Dip and dip azimuth");
    case Convention::StrikeAndDip:
        return tr("Strike (right-hand rule) and dip");
    case Convention::PlungeAndTrend:
        return tr("Plunge and trend");
    case Convention::AzimuthOnly:
        return tr("Azimuth");
    case Convention::QuadrantPlane:
        return tr("Strike, dip and quadrant (N30E/45NW)");
    case Convention::QuadrantDirection:
        return tr("Direction by quadrant (S45W)");
    case Convention::StrikeDipText:
        return tr("Strike (right-hand rule)/dip (045/30)");
    case Convention::AzimuthDipText:
        return tr("Dip azimuth/dip (045/30)");
    case Convention::DipAzimuthText:
        return tr("Dip/dip azimuth (30/045)");
    case Convention::PlungeTrendText:
        return tr("Plunge/trend (30/045)");
    }
    return QString();
}

bool OrientationRecognizer::isAngleName(const QString& sName)
{
    return angleName(sName).m_eRole != AngleRole::None;
}

} // namespace gkHost
