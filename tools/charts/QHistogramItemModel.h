#pragma once

#include "HistogramGeometry.h"
#include "MatrixData.h"
#include "gkBaseToolsExport.h"

#include <QAbstractItemModel>

#include <memory>
#include <vector>

namespace gkBase {

/// The intervals of a histogram as a table: one row per interval, the columns of MatrixData::newFrequencyData().
class GKBASETOOLS_EXPORT QHistogramItemModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    explicit QHistogramItemModel(QObject* pqParent = nullptr);
    ~QHistogramItemModel() override;

    /// Not owned.
    void setDataRoot(MatrixData* poRoot) { m_poDataRoot = poRoot; }
    MatrixData* dataRoot() const { return m_poDataRoot; }

    /// Counts the records (an empty list: all) of an attribute into intervals. iType is a MatrixData::HistogramType;
    /// one that does not exist counts as Frequency. An interval size that is not above 1e-8 is chosen by the data
    /// set. Null empties the model. The attribute is not kept.
    void takeNewDataSet(MatrixData* poData, int iType, const std::vector<int>& viRecords);
    void clear();

    /// Width of the intervals in model units; 99999.0 lets the data set choose at the next rebuild.
    double intervalSize() const { return m_dIntervalSize; }
    void setIntervalSize(double dSize) { m_dIntervalSize = dSize; }
    /// Left edge of the first interval; 99999.0 without values.
    double min() const { return m_dMin; }
    MatrixData::HistogramType histogramType() const { return m_eType; }
    /// Records with a value that were counted.
    int numberOfPoints() const { return m_iPoints; }
    /// Largest bar; 0 without bars.
    double maximumHeight() const;
    /// Share of the points in one interval, in per cent, whatever the type; 0 out of range.
    double intervalShare(int iInterval) const;
    /// Null before the first data set. Owned by the model and replaced at each rebuild.
    const MatrixData* frequencyData() const { return m_poFrequencyData.get(); }
    /// The same as plain intervals for drawing.
    const std::vector<HistogramInterval>& intervals() const { return m_vIntervals; }
    /// 10, 50 and 90 per cent points in model units; 99999.0 without values.
    HistogramPercentiles percentiles() const { return m_oPercentiles; }
    /// Sample standard deviation of the counted values in model units; 99999.0 below two values.
    double standardDeviation() const { return m_dStandardDeviation; }

    QModelIndex index(int iRow, int iColumn, const QModelIndex& oParent = {}) const override;
    QModelIndex parent(const QModelIndex& oChild) const override;
    int rowCount(const QModelIndex& oParent = {}) const override;
    int columnCount(const QModelIndex& oParent = {}) const override;
    QVariant data(const QModelIndex& oIndex, int iRole = Qt::DisplayRole) const override;
    QVariant headerData(int iSection, Qt::Orientation eOrientation, int iRole = Qt::DisplayRole) const override;

private:
    MatrixData* m_poDataRoot = nullptr; ///< not owned
    std::unique_ptr<MatrixData> m_poFrequencyData;
    std::vector<HistogramInterval> m_vIntervals;
    std::vector<int> m_viRecords; ///< empty: all
    HistogramPercentiles m_oPercentiles;
    MatrixData::HistogramType m_eType = MatrixData::Frequency;
    double m_dIntervalSize;
    double m_dMin;
    double m_dStandardDeviation;
    int m_iPoints = 0;
};

} // namespace gkBase
