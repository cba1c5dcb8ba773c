#include "MatrixDataArray.h"

#include "MatrixDataRange.h"

#include <QDataStream>

#include <algorithm>
#include <bit>
#include <cmath>

namespace gkBase {

namespace {

QMetaType::Type arrayType(QMetaType::Type eType)
{
    return eType == QMetaType::QPointF ? QMetaType::QPointF : QMetaType::Double;
}

bool sameDouble(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

} // namespace

MatrixDataArray::MatrixDataArray(const QString& sName, int iRows, int iColumns, QMetaType::Type eType, int iRowOffSet)
    : MatrixData(sName, -1, -1, QMetaType::Double, iRowOffSet)
    , m_eCellType(arrayType(eType))
{
    reserve(iRows, iColumns);
}

MatrixDataArray::MatrixDataArray(const MatrixDataArray& other, bool bDeep)
    : MatrixData(other, false)
    , m_eCellType(other.m_eCellType)
{
    if (bDeep)
        copyCells(other);
}

MatrixDataArray& MatrixDataArray::operator=(const MatrixDataArray& other)
{
    if (this == &other)
        return *this;
    copyProperties(other);
    copyCells(other);
    valuesChanged();
    notifyAttributes();
    return *this;
}

MatrixData* MatrixDataArray::clone() const
{
    return new MatrixDataArray(*this, true);
}

void MatrixDataArray::copyCells(const MatrixDataArray& other)
{
    m_eCellType = other.m_eCellType;
    m_iRows = other.m_iRows;
    m_iColumns = other.m_iColumns;
    m_vdCells = other.m_vdCells;
    m_vPoints = other.m_vPoints;
    m_dIntervalSize = other.m_dIntervalSize;
    m_bExpandColormap = other.m_bExpandColormap;
}

void MatrixDataArray::reserve(int iRows, int iColumns)
{
    m_iRows = std::max(iRows, 0);
    m_iColumns = std::max(iColumns, 0);
    const std::size_t nCells = static_cast<std::size_t>(m_iRows) * static_cast<std::size_t>(m_iColumns);
    m_vdCells.assign(isPoints() ? 0 : nCells, 0.0);
    m_vPoints.assign(isPoints() ? nCells : 0, QPointF());
    valuesChanged();
}

void MatrixDataArray::addValue(int iRow, int iColumn, double w)
{
    if (isPoints() || !contains(iRow, iColumn))
        return;
    m_vdCells[index(iRow, iColumn)] += w;
    touch();
}

double MatrixDataArray::cell(int iRow, int iColumn) const
{
    return !isPoints() && contains(iRow, iColumn) ? m_vdCells[index(iRow, iColumn)] : g_dMissingValue;
}

void MatrixDataArray::setCell(int iRow, int iColumn, double dValue)
{
    if (isPoints() || !contains(iRow, iColumn))
        return;
    m_vdCells[index(iRow, iColumn)] = dValue;
    touch();
}

QPointF MatrixDataArray::point(int iRow, int iColumn) const
{
    return isPoints() && contains(iRow, iColumn) ? m_vPoints[index(iRow, iColumn)]
                                                 : QPointF(g_dMissingValue, g_dMissingValue);
}

void MatrixDataArray::setPoint(int iRow, int iColumn, const QPointF& oPoint)
{
    if (!isPoints() || !contains(iRow, iColumn))
        return;
    m_vPoints[index(iRow, iColumn)] = oPoint;
    touch();
}

bool MatrixDataArray::writeDerived(int iRecord, int iColumn, const QVariant& qValue)
{
    if (contains(iRecord, iColumn)) {
        if (isPoints())
            setPoint(iRecord, iColumn, qValue.toPointF());
        else
            setCell(iRecord, iColumn, qValue.isValid() ? qValue.toDouble() : g_dEmptyCell);
        valuesChanged();
    }
    return true;
}

QVariant MatrixDataArray::cellValue(int iRecord, int iColumn) const
{
    if (!contains(iRecord, iColumn))
        return QVariant();
    if (isPoints())
        return m_vPoints[index(iRecord, iColumn)];
    const double dCell = m_vdCells[index(iRecord, iColumn)];
    return std::isnan(dCell) ? QVariant() : QVariant(dCell);
}

double MatrixDataArray::cellNumber(int iRecord, int iColumn) const
{
    const double dCell = cell(iRecord, iColumn);
    return isMissing(dCell) ? g_dEmptyCell : dCell;
}

const MatrixColumn& MatrixDataArray::column(int iColumn) const
{
    if (isPoints() || iColumn < 0 || iColumn >= m_iColumns)
        return MatrixData::column(-1);
    const std::size_t nColumn = static_cast<std::size_t>(iColumn);
    if (m_iCopiesRevision != revision() || m_vColumnCopies.size() != static_cast<std::size_t>(m_iColumns)) {
        m_vColumnCopies.assign(static_cast<std::size_t>(m_iColumns), MatrixColumn());
        m_vbColumnCopied.assign(static_cast<std::size_t>(m_iColumns), false);
        m_iCopiesRevision = revision();
    }
    if (!m_vbColumnCopied[nColumn]) {
        std::vector<double> vdCells(static_cast<std::size_t>(m_iRows));
        for (int iRow = 0; iRow < m_iRows; ++iRow)
            vdCells[static_cast<std::size_t>(iRow)] = m_vdCells[index(iRow, iColumn)];
        m_vColumnCopies[nColumn] = MatrixColumn::fromDoubles(std::move(vdCells));
        m_vbColumnCopied[nColumn] = true;
    }
    return m_vColumnCopies[nColumn];
}

MatrixColumn& MatrixDataArray::mutableColumn(int)
{
    return MatrixData::mutableColumn(-1);
}

std::size_t MatrixDataArray::memoryUsage() const
{
    std::size_t nBytes = m_vdCells.capacity() * sizeof(double) + m_vPoints.capacity() * sizeof(QPointF);
    for (const MatrixColumn& oColumn : m_vColumnCopies)
        nBytes += oColumn.memoryUsage();
    return nBytes;
}

bool MatrixDataArray::hasEqualExtras(const MatrixData& other) const
{
    const auto& array = static_cast<const MatrixDataArray&>(other);
    const auto samePoint = [](const QPointF& a, const QPointF& b) {
        return sameDouble(a.x(), b.x()) && sameDouble(a.y(), b.y());
    };
    return m_eCellType == array.m_eCellType && m_iRows == array.m_iRows && m_iColumns == array.m_iColumns &&
           sameDouble(m_dIntervalSize, array.m_dIntervalSize) && m_bExpandColormap == array.m_bExpandColormap &&
           std::equal(m_vdCells.begin(), m_vdCells.end(), array.m_vdCells.begin(), array.m_vdCells.end(), sameDouble) &&
           std::equal(m_vPoints.begin(), m_vPoints.end(), array.m_vPoints.begin(), array.m_vPoints.end(), samePoint);
}

void MatrixDataArray::writeExtras(QDataStream& stream, int iRecords) const
{
    const int iRows = iRecords < 0 ? m_iRows : std::min(iRecords, m_iRows);
    stream << static_cast<quint8>(isPoints() ? 1 : 0) << static_cast<qint32>(iRows) << static_cast<qint32>(m_iColumns)
           << m_dIntervalSize << m_bExpandColormap;
    const std::size_t nCells = static_cast<std::size_t>(iRows) * static_cast<std::size_t>(m_iColumns);
    MatrixColumn oCells(QMetaType::Double, static_cast<int>(isPoints() ? 2 * nCells : nCells));
    for (std::size_t n = 0; n < nCells; ++n) {
        if (isPoints()) {
            oCells.mutableDoubles()[2 * n] = m_vPoints[n].x();
            oCells.mutableDoubles()[2 * n + 1] = m_vPoints[n].y();
        } else {
            oCells.mutableDoubles()[n] = m_vdCells[n];
        }
    }
    oCells.write(stream);
}

bool MatrixDataArray::readExtras(QDataStream& stream)
{
    quint8 iPoints = 0;
    qint32 iRows = 0;
    qint32 iColumns = 0;
    stream >> iPoints >> iRows >> iColumns >> m_dIntervalSize >> m_bExpandColormap;
    const std::optional<MatrixColumn> oCells = MatrixColumn::read(stream);
    if (!oCells || iPoints > 1 || iRows < 0 || iColumns < 0 || oCells->type() != QMetaType::Double)
        return false;
    const std::span<const double> vdCells = oCells->doubles();
    if (static_cast<qint64>(iRows) * iColumns * (iPoints + 1) != static_cast<qint64>(vdCells.size()))
        return false;
    m_eCellType = iPoints == 1 ? QMetaType::QPointF : QMetaType::Double;
    reserve(iRows, iColumns);
    for (std::size_t n = 0; n < m_vdCells.size(); ++n)
        m_vdCells[n] = vdCells[n];
    for (std::size_t n = 0; n < m_vPoints.size(); ++n)
        m_vPoints[n] = QPointF(vdCells[2 * n], vdCells[2 * n + 1]);
    return true;
}

void MatrixDataArray::swapContents(MatrixData& other)
{
    auto& array = static_cast<MatrixDataArray&>(other);
    std::swap(m_eCellType, array.m_eCellType);
    std::swap(m_iRows, array.m_iRows);
    std::swap(m_iColumns, array.m_iColumns);
    std::swap(m_vdCells, array.m_vdCells);
    std::swap(m_vPoints, array.m_vPoints);
    std::swap(m_dIntervalSize, array.m_dIntervalSize);
    std::swap(m_bExpandColormap, array.m_bExpandColormap);
    MatrixData::swapContents(other);
}

} // namespace gkBase
