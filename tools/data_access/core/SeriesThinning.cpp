#include "SeriesThinning.h"

#include "MissingValue.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace gkBase {

namespace {

/// The samples of one stay in a row.
class RowStay
{
public:
    explicit RowStay(std::vector<std::size_t>& viKept)
        : m_viKept(viKept)
    {
    }

    void add(int iRow, std::size_t i, double dValue)
    {
        if (m_bOpen && iRow == m_iRow) {
            m_iLast = i;
            if (dValue < m_dLeast) {
                m_dLeast = dValue;
                m_iLeast = i;
            } else if (dValue > m_dGreatest) {
                m_dGreatest = dValue;
                m_iGreatest = i;
            }
            return;
        }
        close();
        m_bOpen = true;
        m_iRow = iRow;
        m_iFirst = m_iLast = m_iLeast = m_iGreatest = i;
        m_dLeast = m_dGreatest = dValue;
    }

    /// Writes what the stay keeps, in order and each once.
    void close()
    {
        if (!m_bOpen) {
            return;
        }
        const std::array<std::size_t, 4> aiSamples{m_iFirst, std::min(m_iLeast, m_iGreatest),
                                                   std::max(m_iLeast, m_iGreatest), m_iLast};
        for (std::size_t i = 0; i < aiSamples.size(); ++i) {
            const bool bInner = i == 1 || i == 2;
            if ((i == 0 || aiSamples[i] != m_viKept.back()) && !(bInner && isOutside())) {
                m_viKept.push_back(aiSamples[i]);
            }
        }
        m_bOpen = false;
    }

    static constexpr int s_iBefore = -1;
    static constexpr int s_iBehind = -2;

private:
    bool isOutside() const { return m_iRow < 0; }

    std::vector<std::size_t>& m_viKept;
    bool m_bOpen = false;
    int m_iRow = 0;
    std::size_t m_iFirst = 0;
    std::size_t m_iLast = 0;
    std::size_t m_iLeast = 0;
    std::size_t m_iGreatest = 0;
    double m_dLeast = 0.0;
    double m_dGreatest = 0.0;
};

} // namespace

std::vector<std::size_t> thinSeries(std::span<const double> vdPosition, std::span<const double> vdValue, double dFrom,
                                    double dTo, int iPixels)
{
    std::vector<std::size_t> viKept;
    const double dRowsPerUnit = iPixels / (dTo - dFrom);
    if (iPixels < 1 || isMissing(dFrom) || isMissing(dTo) || dFrom == dTo || !std::isfinite(dRowsPerUnit)) {
        return viKept;
    }
    const std::size_t iSamples = std::min(vdPosition.size(), vdValue.size());
    viKept.reserve(std::min(iSamples, 4 * static_cast<std::size_t>(iPixels)));
    RowStay oStay(viKept);
    bool bGap = false;
    for (std::size_t i = 0; i < iSamples; ++i) {
        if (isMissing(vdPosition[i]) || isMissing(vdValue[i])) {
            oStay.close();
            bGap = true;
            continue;
        }
        if (bGap && !viKept.empty()) {
            viKept.push_back(g_iSeriesGap);
        }
        bGap = false;
        const double dRow = (vdPosition[i] - dFrom) * dRowsPerUnit;
        const int iRow = dRow < 0.0       ? RowStay::s_iBefore
                         : dRow > iPixels ? RowStay::s_iBehind
                                          : std::min(static_cast<int>(dRow), iPixels - 1);
        oStay.add(iRow, i, vdValue[i]);
    }
    oStay.close();
    return viKept;
}

} // namespace gkBase
