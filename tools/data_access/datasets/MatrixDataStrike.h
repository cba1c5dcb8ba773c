#pragma once

#include "MatrixData.h"

namespace gkBase {

/// The strike of planes by the right-hand rule, linked to their dip azimuth: value = azimuth − 90 in [0, 360).
///
/// It stores no values of its own; reading asks the azimuth, writing a strike s writes azimuth s + 90. When the
/// azimuth is removed the link is dropped and the attribute reads as missing until undo puts the azimuth back.
class GKBASEQT_EXPORT MatrixDataStrike : public MatrixData
{
public:
    MatrixDataStrike(const QString& sName, MatrixData* poAzimuth);
    MatrixDataStrike(const MatrixDataStrike& other, bool bDeep = true);
    MatrixData* clone() const override;

    MatrixData* azimuth() const { return m_poAzimuth; }
    void setAzimuth(MatrixData* poAzimuth) { m_poAzimuth = poAzimuth; }

private:
    MatrixData* m_poAzimuth; ///< not owned
};

} // namespace gkBase
