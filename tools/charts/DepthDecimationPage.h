#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace gkBase {

/// The controls of data decimation over the bins of an interval filter.
class DepthDecimationPage : public QWidget
{
    Q_OBJECT
public:
    explicit DepthDecimationPage(QWidget* pqParent = nullptr);

    /// Average of each bin, or the record nearest to its centre.
    bool binAverage() const;
    void setBinAverage(bool bAverage);
    bool replaces() const;
    void setReplaces(bool bReplace);
    bool selectedOnly() const;
    bool preview() const;
    /// What the bins hold; no bins switch the page off.
    void showCounts(int iBins, int iEmptyBins, int iRecords);

signals:
    /// Preview or what it shows was switched.
    void optionsChanged();
    void applyAsked();

private:
    QRadioButton* m_pqBinAverage;
    QRadioButton* m_pqNearestRecord;
    QCheckBox* m_pqReplace;
    QCheckBox* m_pqSelectedOnly;
    QCheckBox* m_pqPreview;
    QLabel* m_pqCounts;
    QPushButton* m_pqApply;
};

} // namespace gkBase
