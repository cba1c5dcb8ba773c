#pragma once

#include "MatrixDataPointer.h"
#include "SymbolSpriteCache.h"
#include "gkBaseToolsExport.h"

#include <QAbstractListModel>
#include <QColor>
#include <QMap>
#include <QPixmap>
#include <QPointer>
#include <QVariant>

namespace gkBase {

class MatrixData;
class QChartDrawingArea;
class QRelationshipItemModel;

/// The classes of a colour or symbol attribute, one row each: name with swatch or symbol in column 0, class id in
/// column 1.
///
/// Row r shows class r + 1. The entry of the lowest id, that of records without a value, is never listed.
///
/// The owner fills the classes with setClasses(), or writes classNames() and classColors() and calls
/// classesChanged(). Chart, second model and symbol node are not owned; one that is destroyed is forgotten.
class GKBASETOOLS_EXPORT QLegendListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    enum LegendType
    {
        SymbolLegend = 0, ///< recolouring changes the symbol colour of the class
        ColorLegend = 1   ///< recolouring changes the colour class
    };

    QLegendListModel(QWidget* pqParent, QChartDrawingArea* pqChart, LegendType eType);
    ~QLegendListModel() override;

    // ---- classes
    /// By class id. Call classesChanged() after writing.
    QMap<int, QVariant>& classNames() { return m_classNames; }
    const QMap<int, QVariant>& classNames() const { return m_classNames; }
    QMap<int, QColor>& classColors() { return m_classColors; }
    const QMap<int, QColor>& classColors() const { return m_classColors; }
    /// Resets the model. Views lose their selection.
    void classesChanged();
    /// Resets the model only when a name or the number of classes differs; new colours alone repaint the rows.
    void setClasses(const QMap<int, QVariant>& names, const QMap<int, QColor>& colors);

    /// The meta type id of the first stored name (QMetaType::QColor: the data set stores the colours, which cannot be
    /// edited here); QMetaType::Double without names.
    int cellType() const;
    LegendType legendType() const { return m_eType; }
    QChartDrawingArea* chart() const;

    /// Classes outside these ids have no symbol; 0 and 3 at first.
    int lowestSymbolId() const { return m_iLowestSymbolId; }
    int highestSymbolId() const { return m_iHighestSymbolId; }
    void setLowestSymbolId(int iId);
    void setHighestSymbolId(int iId);

    /// The attribute that stores colours, for names that are colours.
    void setSymbolNode(MatrixData* poNode);
    MatrixData* getSymbolNode() const;
    /// A second relationship model that is recoloured with the chart's. Null for none.
    void setLineationModel(QRelationshipItemModel* pModel);

    // ---- rows and classes
    static int classId(const QModelIndex& index) { return index.isValid() ? index.row() + 1 : -1; }
    /// Invalid for a class that is not listed.
    QModelIndex indexOfClass(int iClassId) const;

    // ---- pictures
    /// The symbol of a class on white, filled in a symbol legend and hollow in a colour legend, as sharp as the
    /// chart's screen shows it. Ids that are no point style get the circle.
    QPixmap symbol(int iClassId) const;
    /// The swatch of a class: the colour that the data store, or that of the colour legend. Invalid for a class that
    /// shows its symbol, or nothing.
    QColor swatchColor(int iClassId) const;
    bool hasSymbol(int iClassId) const;
    /// How the symbol of a class is drawn on white.
    SymbolLook symbolLook(int iClassId) const;

    /// Gives a class another colour, in the chart's points and those of the second model as well. The chart is not
    /// drawn again: the caller does that once after all changes. Nothing for an invalid index or colour.
    void changeSymbolColor(const QModelIndex& index, const QColor& oColor);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int iRole = Qt::DisplayRole) const override;

private:
    void emitAllChanged();

    QMap<int, QVariant> m_classNames;
    QMap<int, QColor> m_classColors;
    int m_iLowestSymbolId = 0;
    int m_iHighestSymbolId = 3;
    QPointer<QChartDrawingArea> m_pqChart;
    QPointer<QRelationshipItemModel> m_pLineationModel;
    LegendType m_eType;
    MatrixDataPointer m_poSymbolNode;
    mutable SymbolSpriteCache m_oSprites;
};

} // namespace gkBase
