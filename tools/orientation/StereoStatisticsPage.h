#pragma once

#include "OrientationStatistics.h"
#include "OrientationText.h"
#include "gkBaseToolsExport.h"

#include <QString>
#include <QWidget>

#include <span>

class QKeyEvent;
class QLabel;
class QPushButton;
class QTableWidget;

namespace gkBase {

struct OrientationStatisticsRow;

/// The statistics of orientation records as a table that can be selected and copied. Fits a narrow side bar: long
/// texts wrap.
class GKBASETOOLS_EXPORT StereoStatisticsPage : public QWidget
{
    Q_OBJECT
public:
    explicit StereoStatisticsPage(QWidget* pqParent = nullptr);

    /// Of planes the statistics of their poles and then those of their dip lines; of lines only one. The title tells
    /// what the records are (data set, selection). bWeighted: they were weighted against bias.
    void showStatistics(const QString& sTitle, std::span<const OrientationStatistics> vStatistics, bool bWeighted,
                        OrientationConvention eConvention);
    /// The reason takes the place of the table.
    void showNothing(const QString& sReason);

    /// The table, separated by tabs, one row a line; empty when nothing is shown.
    QString text() const;

public slots:
    /// Selected rows, or all without a selection.
    void copyToClipboard();

protected:
    bool eventFilter(QObject* pqWatched, QEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void createControls();
    void addHeading(const QString& sText, bool bTitle);
    void addRow(const OrientationStatisticsRow& row);
    void fitRows();
    QString text(bool bSelectedOnly) const;

    QLabel* m_pqTitleLabel;
    QLabel* m_pqReasonLabel;
    QTableWidget* m_pqTable;
    QPushButton* m_pqCopyBtn;
};

} // namespace gkBase
