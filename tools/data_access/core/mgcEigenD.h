#pragma once

#include "gkBaseCoreExport.h"

#include <vector>

/// Eigenvalues and eigenvectors of a symmetric n × n matrix.
///
///     mgcEigenD oEigen(3);
///     oEigen.Matrix(ppdRows);
///     oEigen.IncrSortEigenStuff3();
///     oEigen.value(2); // the largest eigenvalue
class GKBASECORE_EXPORT mgcEigenD
{
public:
    /// A solver for matrices of n rows; with n below 1 nothing can be loaded or solved.
    explicit mgcEigenD(int n);
    ~mgcEigenD();

    int size() const { return m_iSize; }

    /// Loads n rows of n numbers (copied). Of a matrix that is not quite symmetric the symmetric part counts. A null
    /// pointer, a null row, or a number that is not finite leaves the solver empty.
    void Matrix(double** ppdRows);

    /// Solves for eigenvalues in increasing order with unit eigenvectors as columns. Values whose magnitude is below
    /// 1e-12 of the trace are rounding noise and become exactly 0. The component of largest magnitude of each
    /// eigenvector is positive. Does nothing without a matrix.
    void IncrSortEigenStuff3();

    /// True after a successful IncrSortEigenStuff3().
    bool isSolved() const { return !m_vdValues.empty(); }
    /// Eigenvalue i, rising with i; 99999.0 out of range or before solving.
    double value(int i) const;
    /// Component iRow of eigenvector iColumn; 99999.0 out of range or before solving.
    double vector(int iRow, int iColumn) const;

private:
    bool isIndex(int i) const { return i >= 0 && i < m_iSize; }

    int m_iSize;
    std::vector<double> m_vdMatrix;  ///< row by row; empty until loaded
    std::vector<double> m_vdValues;  ///< empty until solved
    std::vector<double> m_vdVectors; ///< column by column
};
