#pragma once

#include "ClusterShape.h"
#include "gkBaseToolsExport.h"

#include <QString>
#include <QWidget>

#include <span>
#include <vector>

class QLabel;
class QPushButton;
class QTableWidget;

namespace gkBase {

class QWoodcockHelpWidget;

/// The Woodcock diagram of the clusters of a stereonet above a table of their values. A row of the table and its point
/// in the diagram are highlighted together.
class GKBASETOOLS_EXPORT StereoWoodcockPage : public QWidget
{
    Q_OBJECT
public:
    explicit StereoWoodcockPage(QWidget* pqParent = nullptr);

    QWoodcockHelpWidget* diagram() const { return m_pqDiagram; }
    /// One point and one row each; the highlighted one stays so when its name is among them.
    void showShapes(std::span<const ClusterShape> vShapes);
    /// Empties diagram and table; the reason stands below the diagram.
    void showNothing(const QString& sReason);
    /// Highlights a row and its point; −1 for none. Emits nothing.
    void setCurrentShape(int iShape);
    int currentShape() const;
    int numberOfShapes() const { return static_cast<int>(m_vShapes.size()); }
    /// The table, separated by tabs, with its headers.
    QString text() const;

signals:
    /// The user chose a shape in the table or in the diagram; −1 for none.
    void shapeChosen(int iShape);

private:
    void createControls();
    void fillTable();
    void highlight(int iShape);
    void slotRowSelected();
    void slotPointClicked(int iPoint);
    void copyToClipboard();

    QWoodcockHelpWidget* m_pqDiagram;
    QTableWidget* m_pqTable;
    QLabel* m_pqReasonLabel;
    QPushButton* m_pqCopyBtn;
    std::vector<ClusterShape> m_vShapes;
};

} // namespace gkBase
