#include "mgcEigenD.h"

#include "MissingValue.h"

#include <Eigen/Eigenvalues>

#include <cmath>
#include <cstddef>

namespace {
/// Share of the trace below which an eigenvalue is rounding noise.
constexpr double g_dNoiseOfTrace = 1e-12;
} // namespace

mgcEigenD::mgcEigenD(int n)
    : m_iSize(n > 0 ? n : 0)
{
}

mgcEigenD::~mgcEigenD() = default;

void mgcEigenD::Matrix(double** ppdRows)
{
    m_vdMatrix.clear();
    m_vdValues.clear();
    m_vdVectors.clear();
    if (!ppdRows || m_iSize < 1) {
        return;
    }
    for (int iRow = 0; iRow < m_iSize; ++iRow) {
        if (!ppdRows[iRow]) {
            return;
        }
    }
    std::vector<double> vdMatrix;
    vdMatrix.reserve(static_cast<std::size_t>(m_iSize) * static_cast<std::size_t>(m_iSize));
    for (int iRow = 0; iRow < m_iSize; ++iRow) {
        for (int iColumn = 0; iColumn < m_iSize; ++iColumn) {
            const double dValue = 0.5 * ppdRows[iRow][iColumn] + 0.5 * ppdRows[iColumn][iRow];
            if (!std::isfinite(dValue)) {
                return;
            }
            vdMatrix.push_back(dValue);
        }
    }
    m_vdMatrix = std::move(vdMatrix);
}

void mgcEigenD::IncrSortEigenStuff3()
{
    m_vdValues.clear();
    m_vdVectors.clear();
    if (m_vdMatrix.empty()) {
        return;
    }
    const Eigen::Map<const Eigen::MatrixXd> oMatrix(m_vdMatrix.data(), m_iSize, m_iSize);
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> oSolver(oMatrix);
    if (oSolver.info() != Eigen::Success) {
        return;
    }
    Eigen::MatrixXd oVectors = oSolver.eigenvectors();
    for (Eigen::Index iColumn = 0; iColumn < oVectors.cols(); ++iColumn) {
        Eigen::Index iLargest = 0;
        oVectors.col(iColumn).cwiseAbs().maxCoeff(&iLargest);
        if (oVectors(iLargest, iColumn) < 0.0) {
            oVectors.col(iColumn) *= -1.0;
        }
    }
    const double dNoise = g_dNoiseOfTrace * std::abs(oMatrix.trace());
    for (const double dValue : oSolver.eigenvalues()) {
        m_vdValues.push_back(std::abs(dValue) < dNoise ? 0.0 : dValue);
    }
    m_vdVectors.assign(oVectors.data(), oVectors.data() + oVectors.size());
}

double mgcEigenD::value(int i) const
{
    return isSolved() && isIndex(i) ? m_vdValues[static_cast<std::size_t>(i)] : gkBase::g_dMissingValue;
}

double mgcEigenD::vector(int iRow, int iColumn) const
{
    if (!isSolved() || !isIndex(iRow) || !isIndex(iColumn)) {
        return gkBase::g_dMissingValue;
    }
    return m_vdVectors[static_cast<std::size_t>(iColumn) * static_cast<std::size_t>(m_iSize) +
                       static_cast<std::size_t>(iRow)];
}
