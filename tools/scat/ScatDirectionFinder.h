#pragma once

#include "MatrixDataPointer.h"
#include "MissingValue.h"
#include "TangentFit.h"
#include "TransverseDirection.h"
#include "gkBaseToolsExport.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <vector>

class QLabel;
class QPushButton;
class QTabWidget;

namespace gkBase {

class CanvasFrame;
class ChartFrame;
class MatrixData;
class MatrixDataNotifier;
class QRelationshipItemModel;
class ScatAzimuthFrame;
class ScatDipAzimuthPlot;
class ScatTangentPlot;

/// Help in finding the T and L directions of a dipmeter well: small diagrams of its planes (the tangent diagram with
/// the line that fits, dip against dip azimuth with the curve of that fold, a histogram of azimuths), all with the
/// present T and L, and two suggestions that the user takes with a click.
///
/// Everything is of the selected records, or of all where none is selected. It is worked out only while the widget is
/// visible, and only after changes.
class GKBASETOOLS_EXPORT ScatDirectionFinder : public QWidget
{
    Q_OBJECT
public:
    explicit ScatDirectionFinder(QWidget* pqParent = nullptr);
    ~ScatDirectionFinder() override;

    /// Dip and dip azimuth of planes in whatever unit of angles, not owned; null for either empties the diagrams, as
    /// the end of one does. iRecords, viTableRows, and what becomes of the selection: as
    /// QRelationshipItemModel::takeNewDataSet().
    void setData(int iRecords, MatrixData* poDip, MatrixData* poAzimuth, const std::vector<int>& viTableRows);
    /// Reads the values that changed.
    void refresh();
    /// Those out of range are skipped.
    void setSelectedRecords(const std::vector<int>& viRecords);
    /// The directions that are used now, degrees; 99999.0 for none.
    void setDirections(double dT, double dL);
    void setBlackBackground(bool bBlack);
    /// Of the texts in the diagrams, in points.
    void setFontSize(double dPointSize);

    ScatTangentPlot* tangentPlot() const { return m_pqTangent; }
    ScatDipAzimuthPlot* dipAzimuthPlot() const { return m_pqDipAzimuth; }
    ScatAzimuthFrame* azimuthFrame() const { return m_pqAzimuthFrame; }
    /// As shown; undefined before the widget was first seen with data.
    const TangentFit& fit() const { return m_fit; }
    const TransverseDirections& lineSuggestion() const { return m_lineSuggestion; }
    const TransverseDirections& firstGuess() const { return m_firstGuess; }

    /// Without the diagrams the fit and the suggestions remain.
    void showDiagrams(bool bShow);
    bool areDiagramsShown() const;
    /// The least height of the fit and the suggestions, and by how much the diagrams add to it.
    int suggestionsHeight() const;
    int diagramsHeight() const;

    QSize sizeHint() const override;

signals:
    /// The user took a suggestion.
    void directionsSuggested(double dT, double dL);
    /// The user selected at least one record in a diagram; a mask over the records, to be copied at once.
    void dataPointsSelection(bool* pbSelection, int iLength);

protected:
    void showEvent(QShowEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void createDiagrams();
    void createSuggestions();
    void showNoteIfRoom();
    void connectAll();

    void slotCanvasSelection();
    void slotNodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    /// Listens to the tree of the node; null to none.
    void watchTree(MatrixData* poNode);
    void clear();
    /// Shows what changed in the model; puts the computing off while nothing is seen.
    void modelChanged();
    void updateResults();
    void countAzimuthsIfSeen();
    void showFit();
    void showSuggestion(QPushButton& button, const QString& sRule, const TransverseDirections& directions,
                        const QString& sHelp);
    /// Why there is no line or first guess.
    QString reason(const TransverseDirections& directions) const;

    QRelationshipItemModel* m_pModel;
    MatrixDataPointer m_oDip;
    MatrixDataPointer m_oAzimuth;
    QPointer<MatrixDataNotifier> m_pqNotifier; ///< of the tree that holds dip and azimuth; not owned
    std::vector<int> m_viSelected;             ///< as told from outside, or selected here
    TangentFit m_fit;
    TransverseDirections m_lineSuggestion;
    TransverseDirections m_firstGuess;
    quint64 m_iShownRevision = 0;     ///< of the model, for the results; 0: none
    quint64 m_iCountedRevision = 0;   ///< for the histogram
    quint64 m_iRimPointsRevision = 0; ///< of the points, for the rim of the tangent diagram

    QTabWidget* m_pqTabs = nullptr;
    ScatTangentPlot* m_pqTangent = nullptr;
    ScatDipAzimuthPlot* m_pqDipAzimuth = nullptr;
    CanvasFrame* m_pqTangentFrame = nullptr;
    ChartFrame* m_pqDipAzimuthFrame = nullptr;
    ScatAzimuthFrame* m_pqAzimuthFrame = nullptr;
    QLabel* m_pqFitLabel = nullptr;
    QPushButton* m_pqLineBtn = nullptr;
    QPushButton* m_pqFirstGuessBtn = nullptr;
    QLabel* m_pqNoteLabel = nullptr;
};

} // namespace gkBase
