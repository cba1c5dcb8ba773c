#include "MissingValue.h"
#include "ReferenceData.h"
#include "mgcEigenD.h"

#include <QTest>

#include <array>
#include <cmath>

class tst_MgcEigenD : public QObject
{
    Q_OBJECT
private slots:
    void solvesTheEquation();
    void noiseBecomesZero();
    void matchesReference();
    void badInputSolvesNothing();

private:
    static mgcEigenD solved(std::vector<std::vector<double>> vvdRows);
};

mgcEigenD tst_MgcEigenD::solved(std::vector<std::vector<double>> vvdRows)
{
    std::vector<double*> vpdRows;
    for (auto& vdRow : vvdRows) {
        vpdRows.push_back(vdRow.data());
    }
    mgcEigenD oEigen(static_cast<int>(vvdRows.size()));
    oEigen.Matrix(vpdRows.data());
    oEigen.IncrSortEigenStuff3();
    return oEigen;
}

void tst_MgcEigenD::solvesTheEquation()
{
    const std::vector<std::vector<double>> vvdRows{
        {4.0, 1.0, -2.0, 0.5}, {1.0, 3.0, 0.0, 1.5}, {-2.0, 0.0, -1.0, 0.25}, {0.5, 1.5, 0.25, 7.0}};
    const mgcEigenD oEigen = solved(vvdRows);
    QVERIFY(oEigen.isSolved());
    double dTrace = 0.0;
    for (int iColumn = 0; iColumn < 4; ++iColumn) {
        QVERIFY(iColumn == 0 || oEigen.value(iColumn - 1) <= oEigen.value(iColumn));
        dTrace += oEigen.value(iColumn);
        for (int iRow = 0; iRow < 4; ++iRow) {
            double dProduct = 0.0;
            double dDot = 0.0;
            for (int i = 0; i < 4; ++i) {
                dProduct += vvdRows[size_t(iRow)][size_t(i)] * oEigen.vector(i, iColumn);
                dDot += oEigen.vector(i, iRow) * oEigen.vector(i, iColumn);
            }
            GK_COMPARE_CLOSE(dProduct, oEigen.value(iColumn) * oEigen.vector(iRow, iColumn), 1e-13);
            GK_COMPARE_CLOSE(dDot, iRow == iColumn ? 1.0 : 0.0, 1e-13);
        }
    }
    GK_COMPARE_CLOSE(dTrace, 13.0, 1e-13);
}

void tst_MgcEigenD::noiseBecomesZero()
{
    // The sums of products of 20 equal unit vectors: two eigenvalues are 0.
    const std::array<double, 3> adUnit{0.36, 0.48, 0.8};
    std::vector<std::vector<double>> vvdRows(3, std::vector<double>(3));
    for (size_t i = 0; i < 3; ++i) {
        for (size_t j = 0; j < 3; ++j) {
            vvdRows[i][j] = 20.0 * adUnit[i] * adUnit[j];
        }
    }
    const mgcEigenD oEigen = solved(vvdRows);
    QVERIFY(oEigen.value(0) == 0.0 && oEigen.value(1) == 0.0);
    GK_COMPARE_CLOSE(oEigen.value(2), 20.0, 1e-13);
    for (int i = 0; i < 3; ++i) {
        GK_COMPARE_CLOSE(oEigen.vector(i, 2), adUnit[size_t(i)], 1e-13);
    }
}

void tst_MgcEigenD::matchesReference()
{
    GK_REQUIRE_REFERENCE();
    int iSets = 0;
    for (const QString& sFile : {QString("shapes_a"), QString("published_orient_a")}) {
        const QJsonObject sets = gkTest::referenceValues(sFile)["sets"].toObject();
        for (const QString& sSet : sets.keys()) {
            const QJsonObject lines = sets[sSet].toObject()["as_lines"].toObject();
            std::vector<std::vector<double>> vvdRows;
            for (const auto& row : lines["orientation_matrix"].toArray()) {
                vvdRows.push_back(gkTest::toDoubles(row.toArray()));
            }
            const auto vdExpected = gkTest::toDoubles(lines["eigenvalues_e1_e2_e3"].toArray());
            if (vvdRows.size() != 3 || vdExpected.size() != 3) {
                continue;
            }
            ++iSets;
            const mgcEigenD oEigen = solved(vvdRows);
            for (int i = 0; i < 3; ++i) {
                // The printed matrix has fewer digits than the one that the values came from.
                GK_COMPARE_CLOSE(oEigen.value(i), vdExpected[size_t(i)], 1e-8);
            }
        }
    }
    QVERIFY(iSets > 3);
}

void tst_MgcEigenD::badInputSolvesNothing()
{
    mgcEigenD oNone(-2);
    double dCell = 1.0;
    double* pdRow = &dCell;
    oNone.Matrix(&pdRow);
    oNone.IncrSortEigenStuff3();
    QVERIFY(!oNone.isSolved());

    mgcEigenD oPair(2);
    std::array<double, 2> adRow{1.0, 2.0};
    std::array<double*, 2> apdNullRow{adRow.data(), nullptr};
    oPair.Matrix(nullptr);
    oPair.Matrix(apdNullRow.data());
    oPair.IncrSortEigenStuff3();
    QVERIFY(!oPair.isSolved());
    QVERIFY(!solved({{1.0, std::nan("")}, {0.0, 1.0}}).isSolved());
    QCOMPARE(oPair.value(0), gkBase::g_dMissingValue);
    const mgcEigenD oGood = solved({{2.0, 0.0}, {0.0, 1.0}});
    QCOMPARE(oGood.value(2), gkBase::g_dMissingValue);
    QCOMPARE(oGood.vector(0, -1), gkBase::g_dMissingValue);
}

QTEST_APPLESS_MAIN(tst_MgcEigenD)
#include "tst_mgceigend.moc"
