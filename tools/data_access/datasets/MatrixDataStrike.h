#pragma once

#include "MatrixData.h"
#include "MatrixDataPointer.h"

namespace gkBase {

/// The strike of planes by the right-hand rule, linked to their dip azimuth: value = azimuth − 90° in [0°, 360°), in
/// the unit of the azimuth.
///
/// It stores no values of its own; reading asks the azimuth, writing a strike s writes azimuth s + 90°. When the
/// azimuth is removed the link is dropped and the attribute reads as missing until undo puts the azimuth back. In a
/// copied data set the link leads to the copy's azimuth; a stream names the azimuth, which is looked up among the
/// siblings of the strike that was read.
class GKBASEQT_EXPORT MatrixDataStrike : public MatrixData
{
public:
    MatrixDataStrike(const QString& sName, MatrixData* poAzimuth);
    MatrixDataStrike(const MatrixDataStrike& other, bool bDeep = true);
    MatrixDataStrike& operator=(const MatrixDataStrike& other);
    ~MatrixDataStrike() override;
    MatrixData* clone() const override;

    /// Null without one, and while it is taken out of the tree.
    MatrixData* azimuth() const;
    void setAzimuth(MatrixData* poAzimuth);

    int columnCount() const override { return 1; }
    int recordCount() const override;
    bool isDerived() const override { return true; }
    const MatrixColumn& column(int iColumn = 0) const override;
    MatrixColumn& mutableColumn(int iColumn = 0) override;
    std::size_t memoryUsage() const override;

protected:
    bool writeDerived(int iRecord, int iColumn, const QVariant& qValue) override;
    MatrixData* storageNode() override { return azimuth(); }
    QVariant cellValue(int iRecord, int iColumn) const override;
    double cellNumber(int iRecord, int iColumn) const override;
    bool hasEqualExtras(const MatrixData& other) const override;
    void relink(const NodeMap& nodes) override;
    StreamKind streamKind() const override { return StreamKind::Strike; }
    void writeExtras(QDataStream& stream, int iRecords) const override;
    bool readExtras(QDataStream& stream) override;
    void resolveLinks(const std::vector<MatrixData*>& vpSiblings) override;
    void swapContents(MatrixData& other) override;

private:
    void link(MatrixData* poAzimuth);
    /// In the unit of the azimuth; asked for every cell, hence kept.
    double rightAngle(const MatrixData& azimuth) const;

    MatrixDataPointer m_poAzimuth;                        ///< not owned
    mutable boost::shared_ptr<UnitManager> m_poAngleUnit; ///< of m_dRightAngle
    mutable double m_dRightAngle = 90.0;
    QString m_sWantedAzimuth;      ///< read from a stream, until the siblings are there
    mutable MatrixColumn m_oCells; ///< computed when column() is asked for
    mutable quint64 m_iCellsRevision = 0;
    mutable bool m_bCellsKnown = false;
};

} // namespace gkBase
