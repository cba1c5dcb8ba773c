#include "MatrixDataStrike.h"

#include "AngleUnits.h"
#include "Angles.h"
#include "MatrixDataRange.h"
#include "UnitManager.h"

#include <QDataStream>

#include <cmath>
#include <utility>

namespace gkBase {

namespace {

double strikeOf(double dAzimuth, double dRightAngle)
{
    return std::isnan(dAzimuth) ? g_dEmptyCell : wrapAngle(dAzimuth - dRightAngle, 4.0 * dRightAngle);
}

} // namespace

MatrixDataStrike::MatrixDataStrike(const QString& sName, MatrixData* poAzimuth)
    : MatrixData(sName)
{
    link(poAzimuth);
    if (poAzimuth)
        setUnitManager(poAzimuth->unitManager());
}

MatrixDataStrike::MatrixDataStrike(const MatrixDataStrike& other, bool)
    : MatrixData(other, false)
{
    link(other.m_poAzimuth.get());
}

MatrixDataStrike& MatrixDataStrike::operator=(const MatrixDataStrike& other)
{
    if (this == &other)
        return *this;
    copyProperties(other);
    setAzimuth(other.m_poAzimuth.get());
    notifyAttributes();
    return *this;
}

MatrixDataStrike::~MatrixDataStrike()
{
    link(nullptr);
}

MatrixData* MatrixDataStrike::clone() const
{
    return new MatrixDataStrike(*this, true);
}

void MatrixDataStrike::link(MatrixData* poAzimuth)
{
    if (MatrixData* poOld = m_poAzimuth.get())
        removeDependentFrom(*poOld);
    if (poAzimuth && poAzimuth->isDerived()) // no chains, hence no circles
        poAzimuth = nullptr;
    m_poAzimuth = MatrixDataPointer(poAzimuth);
    if (poAzimuth)
        addDependentTo(*poAzimuth);
    touch();
}

double MatrixDataStrike::rightAngle(const MatrixData& azimuth) const
{
    boost::shared_ptr<UnitManager> poUnit = azimuth.unitManager();
    if (poUnit != m_poAngleUnit) {
        m_poAngleUnit = std::move(poUnit);
        m_dRightAngle = 90.0 / degreesPerUnit(azimuth);
    }
    return m_dRightAngle;
}

MatrixData* MatrixDataStrike::azimuth() const
{
    MatrixData* poAzimuth = m_poAzimuth.get();
    return poAzimuth && isReachable(*poAzimuth) ? poAzimuth : nullptr;
}

void MatrixDataStrike::setAzimuth(MatrixData* poAzimuth)
{
    link(poAzimuth);
    valuesChanged();
}

int MatrixDataStrike::recordCount() const
{
    const MatrixData* poAzimuth = azimuth();
    return poAzimuth ? poAzimuth->recordCount() : 0;
}

QVariant MatrixDataStrike::cellValue(int iRecord, int iColumn) const
{
    const double dStrike = cellNumber(iRecord, iColumn);
    return std::isnan(dStrike) ? QVariant() : QVariant(dStrike);
}

double MatrixDataStrike::cellNumber(int iRecord, int iColumn) const
{
    const MatrixData* poAzimuth = azimuth();
    return poAzimuth && iColumn == 0 ? strikeOf(poAzimuth->recordNumber(iRecord), rightAngle(*poAzimuth))
                                     : g_dEmptyCell;
}

const MatrixColumn& MatrixDataStrike::column(int iColumn) const
{
    if (iColumn != 0)
        return MatrixData::column(-1);
    if (!m_bCellsKnown || m_iCellsRevision != revision()) {
        std::vector<double> vdCells;
        if (const MatrixData* poAzimuth = azimuth()) {
            const double dRightAngle = rightAngle(*poAzimuth);
            vdCells = poAzimuth->column(0).numbers();
            for (double& dCell : vdCells)
                dCell = strikeOf(dCell, dRightAngle);
        }
        m_oCells = MatrixColumn::fromDoubles(std::move(vdCells));
        m_iCellsRevision = revision();
        m_bCellsKnown = true;
    }
    return m_oCells;
}

MatrixColumn& MatrixDataStrike::mutableColumn(int)
{
    return MatrixData::mutableColumn(-1);
}

bool MatrixDataStrike::writeDerived(int iRecord, int iColumn, const QVariant& qValue)
{
    MatrixData* poAzimuth = azimuth();
    if (!poAzimuth || iColumn != 0)
        return true;
    const double dStrike = qValue.toDouble();
    const bool bEmpty = !qValue.isValid() || isMissing(dStrike);
    const double dRightAngle = rightAngle(*poAzimuth);
    poAzimuth->setValue(iRecord + poAzimuth->rowOffSet(), 0,
                        bEmpty ? QVariant() : QVariant(wrapAngle(dStrike + dRightAngle, 4.0 * dRightAngle)));
    return true;
}

bool MatrixDataStrike::hasEqualExtras(const MatrixData& other) const
{
    const MatrixData* poAzimuth = azimuth();
    const MatrixData* poOther = static_cast<const MatrixDataStrike&>(other).azimuth();
    return poAzimuth && poOther ? poAzimuth->name() == poOther->name() : poAzimuth == poOther;
}

void MatrixDataStrike::relink(const NodeMap& nodes)
{
    if (const auto it = nodes.find(m_poAzimuth.get()); it != nodes.end())
        link(it->second);
}

void MatrixDataStrike::writeExtras(QDataStream& stream, int) const
{
    const MatrixData* poAzimuth = azimuth();
    stream << (poAzimuth ? poAzimuth->name() : QString());
}

bool MatrixDataStrike::readExtras(QDataStream& stream)
{
    stream >> m_sWantedAzimuth;
    return stream.status() == QDataStream::Ok;
}

void MatrixDataStrike::resolveLinks(const std::vector<MatrixData*>& vpSiblings)
{
    if (m_sWantedAzimuth.isEmpty())
        return;
    for (MatrixData* poSibling : vpSiblings)
        if (poSibling != this && !poSibling->isDerived() && poSibling->name() == m_sWantedAzimuth) {
            link(poSibling);
            break;
        }
    m_sWantedAzimuth.clear();
}

void MatrixDataStrike::swapContents(MatrixData& other)
{
    auto& otherStrike = static_cast<MatrixDataStrike&>(other);
    MatrixData* poAzimuth = m_poAzimuth.get();
    MatrixData* poOther = otherStrike.m_poAzimuth.get();
    MatrixData::swapContents(other);
    std::swap(m_sWantedAzimuth, otherStrike.m_sWantedAzimuth);
    link(poOther);
    otherStrike.link(poAzimuth);
}

std::size_t MatrixDataStrike::memoryUsage() const
{
    return m_oCells.memoryUsage();
}

} // namespace gkBase
