#pragma once

#include "gkBaseToolsExport.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <vector>

namespace gkBase {

class MatrixData;
class QDataAnalyserDialog;
class QScatDepthPlotWidget;
struct OrientationStatistics;

/// What a host does for a dipmeter panel, done between the panel and an analyser of the same data.
///
/// Selections are shared both ways by record, while the analyser shows records of the panel's data set
/// (QDataAnalyserDialog::showsRecordsOf(), selectsRecordsOf()). Whatever is selected, the panel is told the directions
/// T and L of these records, or of all when none is; while it orients lines, it is told their mean plane instead.
/// Of a table that is thinned or filtered the panel shows the same records. The analyser's histogram of the azimuth
/// marks the panel's T and L. Interpreted lines become markers of the well on the panel's request.
///
/// Either side may go first: the other one works on, markers included.
class GKBASETOOLS_EXPORT ScatAnalyserLink : public QObject
{
    Q_OBJECT
public:
    /// Neither is owned.
    ScatAnalyserLink(QDataAnalyserDialog* pqAnalyser, QScatDepthPlotWidget* pqPanel, QObject* pqParent = nullptr);
    ~ScatAnalyserLink() override;

    /// Shows the analyser's selection in the panel. Call it when the panel got other data.
    void takeSelection();

signals:
    /// What became of the markers, in words for the user.
    void markersReported(const QString& sText);

private:
    /// Null without data.
    MatrixData* dataSet() const;
    void sendSelection(bool* pbSelected, int iLength);
    void slotAnalyserSelects();
    void takeTableRows();
    void sendDirections();
    /// In the panel's orientation mode the mean plane of the records, nothing without any. Otherwise T and L of the
    /// records (empty: all that take part) from the line that fits their tangent diagram, or else from the principal
    /// axes of their poles. What the records leave open is not sent.
    void sendOrientations(const std::vector<int>& viRecords);
    void sendMeanOrientation(const OrientationStatistics& statistics);
    void createMarkers();
    void deleteMarkers();
    /// The analyser of these data, null when it shows others or is gone.
    QDataAnalyserDialog* analyserOf(const MatrixData& node) const;

    QPointer<QDataAnalyserDialog> m_pqAnalyser;
    QPointer<QScatDepthPlotWidget> m_pqPanel;
    std::vector<int> m_viTableRows; ///< of a thinned or filtered table; empty: all
};

} // namespace gkBase
