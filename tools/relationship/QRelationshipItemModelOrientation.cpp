// What QRelationshipItemModel computes from orientations: statistics, means, rotations, bias weights, clusters of axes.

#include "AxialClusters.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

OrientationType typeOf(bool bPoles)
{
    return bPoles ? OrientationType::Planes : OrientationType::Lines;
}

QPointF pointOf(const PlaneOrientation& oPlane)
{
    return {oPlane.m_dDip, oPlane.m_dDipAzimuth};
}

QPointF pointOf(const LineOrientation& oLine)
{
    return {oLine.m_dPlunge, oLine.m_dAzimuth};
}

/// A principal axis as a plane or a line; undefined where the records leave open which axis it is.
QPointF axisPoint(const PrincipalAxes& oAxes, std::size_t iAxis, bool bPoles)
{
    if (!isAxisSettled(oAxes, static_cast<int>(iAxis)))
        return {g_dMissingValue, g_dMissingValue};
    return bPoles ? pointOf(oAxes.m_aoPlanes[iAxis]) : pointOf(oAxes.m_aoLines[iAxis]);
}

/// The points of an array as columns of angles and azimuths.
struct OrientationColumns
{
    explicit OrientationColumns(const MatrixDataArray& array)
    {
        m_vdAngles.reserve(static_cast<std::size_t>(array.recordCount()));
        m_vdAzimuths.reserve(static_cast<std::size_t>(array.recordCount()));
        for (int i = 0; i < array.recordCount(); ++i) {
            const QPointF oPoint = array.point(i);
            m_vdAngles.push_back(oPoint.x());
            m_vdAzimuths.push_back(oPoint.y());
        }
    }

    std::vector<double> m_vdAngles;
    std::vector<double> m_vdAzimuths;
};

void turnPoints(MatrixDataArray& array, OrientationType eType, const Rotation& oRotation)
{
    OrientationColumns columns(array);
    rotateOrientations(eType, oRotation, columns.m_vdAngles, columns.m_vdAzimuths, columns.m_vdAngles,
                       columns.m_vdAzimuths);
    for (int i = 0; i < array.recordCount(); ++i) {
        const auto n = static_cast<std::size_t>(i);
        if (!isMissing(columns.m_vdAngles[n]))
            array.setPoint(i, 0, {columns.m_vdAngles[n], columns.m_vdAzimuths[n]});
    }
    array.valuesChanged();
}

bool changesNothing(const Rotation& oRotation)
{
    const LineOrientation& oAxis = oRotation.axis();
    return isMissing(oAxis.m_dPlunge) || isMissing(oAxis.m_dAzimuth) || isMissing(oRotation.angle()) ||
           wrapAngle(oRotation.angle(), 360.0) == 0.0;
}

} // namespace

std::span<const unsigned char> QRelationshipItemModel::takenMask() const
{
    return m_iSelectedPoints == 0 && m_bEmptySelectionTakesAll ? std::span<const unsigned char>() : selectionMask();
}

std::span<const unsigned char> QRelationshipItemModel::orientationMask(bool bSelectionOnly) const
{
    return bSelectionOnly ? takenMask() : std::span<const unsigned char>();
}

void QRelationshipItemModel::setEmptySelectionTakesAll(bool bAll)
{
    if (std::exchange(m_bEmptySelectionTakesAll, bAll) != bAll)
        changed();
}

int QRelationshipItemModel::numberOfTakenPoints() const
{
    if (std::exchange(m_iTakenRevision, m_iRevision) == m_iRevision)
        return m_iTakenPoints;
    const std::span<const unsigned char> vbMask = takenMask();
    m_iTakenPoints = vbMask.empty() ? m_iValidPoints : 0;
    for (std::size_t i = 0; i < vbMask.size(); ++i)
        if (vbMask[i] && !isMissing(m_vdX[i]))
            ++m_iTakenPoints;
    return m_iTakenPoints;
}

OrientationSums QRelationshipItemModel::orientationSums(bool bPoles, bool bSelectionOnly,
                                                        const MatrixData* poData) const
{
    const std::span<const unsigned char> vbMask = orientationMask(bSelectionOnly);
    if (!poData) {
        CachedSums& cached = m_aSums[(bPoles ? 2u : 0u) + (bSelectionOnly ? 1u : 0u)];
        if (std::exchange(cached.m_iRevision, m_iSumsRevision) != m_iSumsRevision)
            cached.m_oSums = gkBase::orientationSums(typeOf(bPoles), m_vdX, m_vdY, vbMask, appliedWeights());
        return cached.m_oSums;
    }
    const auto* poArray = dynamic_cast<const MatrixDataArray*>(poData);
    if (!poArray)
        return {};
    const OrientationColumns columns(*poArray);
    return gkBase::orientationSums(typeOf(bPoles), columns.m_vdAngles, columns.m_vdAzimuths, vbMask, appliedWeights());
}

void QRelationshipItemModel::initialiseCharacteristicMatrix(double (&aadMatrix)[3][3], double& dSx, double& dSy,
                                                            double& dSz, int& iCount, bool bPoles, bool bSelectionOnly,
                                                            const MatrixData* poData) const
{
    const OrientationSums oSums = orientationSums(bPoles, bSelectionOnly, poData);
    for (int iRow = 0; iRow < 3; ++iRow)
        for (int iColumn = 0; iColumn < 3; ++iColumn)
            aadMatrix[iRow][iColumn] = oSums.matrix(iRow, iColumn);
    dSx = oSums.m_oResultant.x();
    dSy = oSums.m_oResultant.y();
    dSz = oSums.m_oResultant.z();
    iCount = static_cast<int>(oSums.m_iCount);
}

OrientationStatistics QRelationshipItemModel::orientationStatistics(bool bPoles, bool bSelectionOnly) const
{
    return gkBase::orientationStatistics(typeOf(bPoles), orientationSums(bPoles, bSelectionOnly, nullptr));
}

void QRelationshipItemModel::calculateFisherStatistics(double& dMeanResultantLength, double& dSphericalVariance,
                                                       double& dKappa, double& dE1, double& dE2, double& dE3,
                                                       double& dMeanResultantLength2, double& dK, double& dC,
                                                       double& dLnS1S2, double& dLnS2S3, double& dAlpha95,
                                                       bool& bUnimodal, QString& sClassification, bool bPoles,
                                                       bool bSelectionOnly) const
{
    const OrientationStatistics oStatistics = orientationStatistics(bPoles, bSelectionOnly);
    const FisherStatistics& oFisher = oStatistics.m_oFisher;
    dMeanResultantLength = dMeanResultantLength2 = oFisher.m_dMeanResultantLength;
    dSphericalVariance = oFisher.m_dSphericalVariance;
    dKappa = oFisher.m_dKappa;
    dAlpha95 = isMissing(oFisher.m_dAlpha95) ? g_dMissingValue : radians(oFisher.m_dAlpha95);
    dE1 = oStatistics.m_oAxes.m_adValues[0];
    dE2 = oStatistics.m_oAxes.m_adValues[1];
    dE3 = oStatistics.m_oAxes.m_adValues[2];
    dK = oStatistics.m_oWoodcock.m_dK;
    dC = oStatistics.m_oWoodcock.m_dC;
    dLnS1S2 = oStatistics.m_oWoodcock.m_dLnS1S2;
    dLnS2S3 = oStatistics.m_oWoodcock.m_dLnS2S3;
    bUnimodal = oStatistics.m_oShape.m_bUnimodal;
    sClassification = QString::fromStdString(oStatistics.m_oShape.m_sText);
}

void QRelationshipItemModel::calculateWoodcockParameterForOneSubSet(int iCluster, double& dK, double& dC,
                                                                    double& dLnS1S2, double& dLnS2S3, bool bPoles) const
{
    const std::span<const int> viIDs = clusterIDs();
    WoodcockParameters oParameters;
    if (iCluster >= 0 && !viIDs.empty()) {
        std::vector<unsigned char> vbMembers(viIDs.size());
        std::transform(viIDs.begin(), viIDs.end(), vbMembers.begin(),
                       [iCluster](int iID) { return static_cast<unsigned char>(iID == iCluster); });
        oParameters = woodcockParameters(
            principalAxes(gkBase::orientationSums(typeOf(bPoles), m_vdX, m_vdY, vbMembers, appliedWeights())));
    }
    dK = oParameters.m_dK;
    dC = oParameters.m_dC;
    dLnS1S2 = oParameters.m_dLnS1S2;
    dLnS2S3 = oParameters.m_dLnS2S3;
}

QRelationshipItemModel::OrientationResults QRelationshipItemModel::resultsOf(bool bPoles, const OrientationSums& oSums)
{
    const FisherStatistics oFisher = fisherStatistics(oSums);
    const PrincipalAxes oAxes = principalAxes(oSums);
    OrientationResults oResults;
    oResults.m_oMeanResultant = bPoles ? pointOf(oFisher.m_oMeanPlane) : pointOf(oFisher.m_oMeanLine);
    oResults.m_oMeanPrincipal = axisPoint(oAxes, 2, bPoles);
    oResults.m_oT = axisPoint(oAxes, 1, bPoles);
    oResults.m_oL = axisPoint(oAxes, 0, bPoles);
    return oResults;
}

void QRelationshipItemModel::updateOrientationResults()
{
    OrientationResults oLines = resultsOf(false, orientationSums(false, m_bPartSelection, nullptr));
    OrientationResults oPoles;
    if (!m_bLines)
        oPoles = resultsOf(true, orientationSums(true, m_bPartSelection, nullptr));
    // Without a mean that the records can be turned to there is no section either: a former one must not stay.
    if (!isMissing(oPoles.m_oMeanResultant.x()))
        oPoles.m_oSuggestedSection = m_oPoleResults.m_oSuggestedSection;
    if (!isMissing(oLines.m_oMeanResultant.x()))
        oLines.m_oSuggestedSection = m_oLineResults.m_oSuggestedSection;
    if (oPoles == m_oPoleResults && oLines == m_oLineResults)
        return;
    m_oPoleResults = oPoles;
    m_oLineResults = oLines;
    resultsChanged();
}

void QRelationshipItemModel::calculateSuggestedSectionOrientation(bool bPoles, bool bSelectionOnly, MatrixData* poData)
{
    const PrincipalAxes oAxes = principalAxes(orientationSums(bPoles, bSelectionOnly, poData));
    if (!oAxes.isDefined())
        return;
    (bPoles ? m_oPoleResults : m_oLineResults).m_oSuggestedSection = axisPoint(oAxes, 1, bPoles);
    resultsChanged();
}

QPointF QRelationshipItemModel::meanResultantPole() const
{
    return m_oPoleResults.m_oMeanResultant;
}

QPointF QRelationshipItemModel::meanPrincipalPlane() const
{
    return m_oPoleResults.m_oMeanPrincipal;
}

QPointF QRelationshipItemModel::TdirectionPlane() const
{
    return m_oPoleResults.m_oT;
}

QPointF QRelationshipItemModel::LdirectionPlane() const
{
    return m_oPoleResults.m_oL;
}

QPointF QRelationshipItemModel::suggestedSectionPlane() const
{
    return m_oPoleResults.m_oSuggestedSection;
}

QPointF QRelationshipItemModel::meanResultantDipDirection() const
{
    return m_oLineResults.m_oMeanResultant;
}

QPointF QRelationshipItemModel::meanPrincipalDipDirection() const
{
    return m_oLineResults.m_oMeanPrincipal;
}

QPointF QRelationshipItemModel::TdirectionDipDirection() const
{
    return m_oLineResults.m_oT;
}

QPointF QRelationshipItemModel::LdirectionDipDirection() const
{
    return m_oLineResults.m_oL;
}

QPointF QRelationshipItemModel::suggestedSectionDipDirection() const
{
    return m_oLineResults.m_oSuggestedSection;
}

void QRelationshipItemModel::rotateDataToMeanPole(const QPointF& oMeanPole, bool bPrimary, MatrixData* poData)
{
    const double dAngle = oMeanPole.x();
    const double dAzimuth = oMeanPole.y();
    addRotation(m_bLines ? rotationToVertical({dAngle, dAzimuth}) : rotationToHorizontal({dAngle, dAzimuth}), bPrimary,
                poData);
}

void QRelationshipItemModel::rotateDataAboutRotationAxis(MatrixData* poData, const QPointF& oAxis, const double& dAngle,
                                                         bool bPrimary)
{
    addRotation(Rotation({oAxis.x(), oAxis.y()}, dAngle), bPrimary, poData);
}

void QRelationshipItemModel::addRotation(const Rotation& oRotation, bool bPrimary, MatrixData* poData)
{
    if (changesNothing(oRotation))
        return;
    if (poData) {
        if (auto* poArray = dynamic_cast<MatrixDataArray*>(poData))
            gkBase::turnPoints(*poArray, typeOf(!m_bLines), oRotation);
        return;
    }
    if (m_vRotations.empty()) {
        m_vdUnturnedX = m_vdX;
        m_vdUnturnedY = m_vdY;
    }
    m_vRotations.push_back(oRotation);
    turnCentroids(oRotation);
    rotationsChanged();
    if (bPrimary)
        updateOrientationResults();
}

void QRelationshipItemModel::undoRotation()
{
    if (!isRotated())
        return;
    turnCentroids(m_vRotations.back().inverse());
    m_vRotations.pop_back();
    rotationsChanged();
    updateOrientationResults();
}

void QRelationshipItemModel::undoAllRotations()
{
    if (!isRotated())
        return;
    for (auto it = m_vRotations.rbegin(); it != m_vRotations.rend(); ++it)
        turnCentroids(it->inverse());
    m_vRotations.clear();
    rotationsChanged();
    updateOrientationResults();
}

/// Brings the points where the rotations that are left put them.
void QRelationshipItemModel::rotationsChanged()
{
    if (isRotated()) {
        turnPoints();
    } else {
        m_vdX = std::exchange(m_vdUnturnedX, {});
        m_vdY = std::exchange(m_vdUnturnedY, {});
    }
    m_poData.reset();
    ++m_iPointsRevision;
    changed();
    if (numberOfPoints() > 0)
        emit dataChanged(createIndex(0, XColumn), createIndex(numberOfPoints() - 1, YColumn));
}

/// Turns the unturned points by all rotations together: each time from the same numbers, so that taking a rotation
/// back leaves no rounding behind.
void QRelationshipItemModel::turnPoints()
{
    Rotation oRotation = m_vRotations.front();
    for (std::size_t i = 1; i < m_vRotations.size(); ++i)
        oRotation = oRotation.then(m_vRotations[i]);
    rotateOrientations(typeOf(!m_bLines), oRotation, m_vdUnturnedX, m_vdUnturnedY, m_vdX, m_vdY);
}

/// The principal axis of turned records is the turned principal axis: centroids follow their clusters.
void QRelationshipItemModel::turnCentroids(const Rotation& oRotation)
{
    for (auto& [sName, clusters] : m_clusters) {
        MatrixDataArray& centroids = *clusters.m_poCentroids;
        std::vector<double> vdAngles;
        std::vector<double> vdAzimuths;
        for (int i = 0; i < centroids.arrayRows(); ++i) {
            vdAngles.push_back(centroids.cell(i, 0));
            vdAzimuths.push_back(centroids.cell(i, 1));
        }
        rotateOrientations(typeOf(!m_bLines), oRotation, vdAngles, vdAzimuths, vdAngles, vdAzimuths);
        for (int i = 0; i < centroids.arrayRows(); ++i) {
            centroids.setCell(i, 0, vdAngles[static_cast<std::size_t>(i)]);
            centroids.setCell(i, 1, vdAzimuths[static_cast<std::size_t>(i)]);
        }
        centroids.valuesChanged();
    }
}

void QRelationshipItemModel::forgetRotations()
{
    m_vRotations.clear();
    m_vdUnturnedX = {};
    m_vdUnturnedY = {};
}

QPointF QRelationshipItemModel::rotatedData(int iRecord) const
{
    if (!isValid(iRecord))
        return {g_dMissingValue, g_dMissingValue};
    return {m_vdX[static_cast<std::size_t>(iRecord)], m_vdY[static_cast<std::size_t>(iRecord)]};
}

void QRelationshipItemModel::setBiasCorrectionOn(bool bOn)
{
    if (std::exchange(m_bBiasCorrection, bOn) != bOn)
        changed();
}

bool QRelationshipItemModel::hasScanLine() const
{
    return !isMissing(m_oScanLine.m_dPlunge) && !isMissing(m_oScanLine.m_dAzimuth);
}

bool QRelationshipItemModel::canBeBiasCorrected(int iRecord) const
{
    return hasScanLine() && isValid(iRecord);
}

double QRelationshipItemModel::biasCorrection(int iRecord) const
{
    if (!isValid(iRecord))
        return g_dMissingValue;
    return hasScanLine() ? biasWeights()[static_cast<std::size_t>(iRecord)] : 1.0;
}

/// The line was drilled through the rocks as they lie: rotations do not change what it missed.
double QRelationshipItemModel::sampledWeight(std::size_t iRecord) const
{
    return isRotated() ? biasWeight(typeOf(!m_bLines), m_vdUnturnedX[iRecord], m_vdUnturnedY[iRecord], m_oScanLine)
                       : biasWeight(typeOf(!m_bLines), m_vdX[iRecord], m_vdY[iRecord], m_oScanLine);
}

double QRelationshipItemModel::biasCorrection(const int& iRecord, const int& iCount, const double& dTotal) const
{
    if (!isValid(iRecord) || !(dTotal > 0.0))
        return g_dMissingValue;
    return sampledWeight(static_cast<std::size_t>(iRecord)) * iCount / dTotal;
}

void QRelationshipItemModel::totalBiasWeight(double& dTotal) const
{
    dTotal = 0.0;
    for (std::size_t i = 0; i < m_vdX.size(); ++i)
        if (!isMissing(m_vdX[i]))
            dTotal += sampledWeight(i);
}

std::span<const double> QRelationshipItemModel::biasWeights() const
{
    if (!hasScanLine())
        return {};
    if (std::exchange(m_iBiasRevision, m_iPointsRevision) != m_iPointsRevision)
        m_vdBiasWeights = gkBase::biasWeights(typeOf(!m_bLines), isRotated() ? m_vdUnturnedX : m_vdX,
                                              isRotated() ? m_vdUnturnedY : m_vdY, m_oScanLine);
    return m_vdBiasWeights;
}

std::span<const double> QRelationshipItemModel::appliedWeights() const
{
    return m_bBiasCorrection ? biasWeights() : std::span<const double>();
}

bool QRelationshipItemModel::buildClusters_KML_ForStereoProjection(const QString& sAttributeName, int k)
{
    KMeansClusters found = axialClusters(typeOf(!m_bLines), m_vdX, m_vdY, k, orientationMask(m_bPartSelection));
    if (found.m_iK == 0)
        return false;
    storeClusters(sAttributeName, std::move(found));
    return true;
}

} // namespace gkBase
