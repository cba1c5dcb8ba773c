#include "ColumnNumbers.h"
#include "LineInPlane.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "PointInPolygon.h"
#include "TriangleContour.h"
#include "UnitManager.h"
#include "UnitRegistry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace gkBase {

namespace {

struct Triangle
{
    Triangle(const double* x, const double* y, const double* v)
    {
        for (int i = 0; i < 3; ++i) {
            m_aCorners[i] = {x[i], y[i], v[i]};
        }
    }
    TriangleCorner m_aCorners[3];
};

void copyPoints(const ContourPoint* pPoints, int iCount, double* outX, double* outY)
{
    for (int i = 0; i < iCount; ++i) {
        outX[i] = pPoints[i].m_dX;
        outY[i] = pPoints[i].m_dY;
    }
}

/// The three vertex attributes of a data set, null where one is missing.
std::array<MatrixData*, 3> vertexAttributes(const MatrixData& oDataSet)
{
    std::array<MatrixData*, 3> apoVertices{};
    constexpr std::array<const char*, 3> apcNames{"X", "Y", "Z"};
    for (int i = 0; i < oDataSet.childCount(); ++i) {
        MatrixData* poChild = oDataSet.child(i);
        for (std::size_t iAxis = 0; poChild->isVertex() && iAxis < apcNames.size(); ++iAxis) {
            if (!apoVertices[iAxis] &&
                poChild->name().compare(QLatin1String(apcNames[iAxis]), Qt::CaseInsensitive) == 0) {
                apoVertices[iAxis] = poChild;
            }
        }
    }
    return apoVertices;
}

/// The length of the path from its first vertex to each vertex; missing where a vertex is, and the path goes on from
/// the vertex before.
std::vector<double> pathLengths(std::span<const double> vdX, std::span<const double> vdY, std::span<const double> vdZ)
{
    std::vector<double> vdLengths(std::min({vdX.size(), vdY.size(), vdZ.size()}), g_dEmptyCell);
    double dLength = 0.0;
    std::size_t iLast = vdLengths.size();
    for (std::size_t i = 0; i < vdLengths.size(); ++i) {
        if (isMissing(vdX[i]) || isMissing(vdY[i]) || isMissing(vdZ[i])) {
            continue;
        }
        if (iLast < i) {
            dLength += std::hypot(vdX[i] - vdX[iLast], vdY[i] - vdY[iLast], vdZ[i] - vdZ[iLast]);
        }
        vdLengths[i] = dLength;
        iLast = i;
    }
    return vdLengths;
}

} // namespace

bool MatrixData::hasOrientationData() const
{
    if (dipAttribute() && azimuthAttribute()) {
        return true;
    }
    return std::any_of(m_vChildren.begin(), m_vChildren.end(),
                       [](const auto& poChild) { return poChild->hasOrientationData(); });
}

void MatrixData::createMeasuredDepth()
{
    for (int i = 0; i < childCount(); ++i) {
        child(i)->createMeasuredDepth();
    }
    const auto [poX, poY, poZ] = vertexAttributes(*this);
    if (!poX || !poY || !poZ || depthAttribute()) {
        return;
    }
    const ColumnNumbers oX(poX->column(0));
    const ColumnNumbers oY(poY->column(0));
    const ColumnNumbers oZ(poZ->column(0));
    QString sName = QStringLiteral("Measured Depth"); // data, not a label: the same in every language
    createUniqueName(sName);
    auto poDepth = std::make_unique<MatrixData>(sName, 0, 1, QMetaType::Double);
    poDepth->setColumn(0, MatrixColumn::fromDoubles(pathLengths(oX.cells(), oY.cells(), oZ.cells())));
    const boost::shared_ptr<UnitManager> poUnit = poZ->unitManager();
    const UnitRegistry* poRegistry = registry();
    const bool bKnownUnit = poRegistry && !poUnit->modelUnit().isEmpty();
    poDepth->setUnitManager(bKnownUnit ? poRegistry->managerForUnit(poUnit->modelUnit(), QStringLiteral("depth"))
                                       : poUnit);
    appendChild(poDepth.release(), true);
}

void MatrixData::plungeAndAzimuth(double& dPlunge, double& dAzimuth, const double& dDip, const double& dDipAzimuth,
                                  const double& dPitch)
{
    const LineOrientation oLine = lineInPlane(dDip, dDipAzimuth, dPitch);
    dPlunge = oLine.m_dPlunge;
    dAzimuth = oLine.m_dAzimuth;
}

void MatrixData::plungeAndAzimuth(double& dPlunge, double& dAzimuth, const double& dDip, const double& dDipAzimuth,
                                  const double& dPitch, const QString& sPitchDirection)
{
    const QByteArray sLetters = sPitchDirection.toUtf8();
    const auto dFrom = compassAzimuth({sLetters.constData(), static_cast<std::size_t>(sLetters.size())});
    const LineOrientation oLine =
        dFrom ? lineInPlane(dDip, dDipAzimuth, dPitch, *dFrom) : lineInPlane(dDip, dDipAzimuth, dPitch);
    dPlunge = oLine.m_dPlunge;
    dAzimuth = oLine.m_dAzimuth;
}

void MatrixData::calculateIsoline(double* x, double* y, double* v, double dLevel, double* outX, double* outY,
                                  int& iCount)
{
    iCount = 0;
    if (!x || !y || !v || !outX || !outY) {
        return;
    }
    ContourPoint aPoints[2];
    iCount = triangleIsoline(Triangle(x, y, v).m_aCorners, dLevel, aPoints);
    copyPoints(aPoints, iCount, outX, outY);
}

void MatrixData::calculatePolygon(double* x, double* y, double* v, double dLower, double dUpper, double* outX,
                                  double* outY, int& iCount)
{
    iCount = 0;
    if (!x || !y || !v || !outX || !outY) {
        return;
    }
    ContourPoint aPoints[6];
    iCount = triangleBand(Triangle(x, y, v).m_aCorners, dLower, dUpper, aPoints);
    copyPoints(aPoints, iCount, outX, outY);
}

bool MatrixData::pointInOrOut(const QPointF& oPoint) const
{
    const ColumnNumbers oX(column(0));
    const ColumnNumbers oY(column(1));
    return pointInPolygon(oX.cells(), oY.cells(), oPoint.x(), oPoint.y());
}

} // namespace gkBase
