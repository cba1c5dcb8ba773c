#pragma once

#include "DepthLineField.h"
#include "MatrixDataPointer.h"
#include "gkBaseToolsExport.h"

#include <QAbstractTableModel>
#include <QPointer>

#include <vector>

namespace gkBase {

class MatrixData;
class ScatScenarios;

/// The lines of the active scenario as a table, by depth. Every cell can be edited; an edit is one step of the
/// scenario's history, and a text that means nothing changes nothing. Texts are read and shown without the locale.
class GKBASETOOLS_EXPORT ScatLineModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        NameColumn,
        TypeColumn,        ///< edited as the text of DepthLineField::type()
        DepthColumn,       ///< in display units; another unit may follow the number
        OrientationColumn, ///< dip and dip azimuth, "30/120"; empty for none
        ColorColumn,       ///< shown by the delegate only; edited as a colour or its name
        ColumnCount
    };

    /// The scenarios may go before the model, which is empty then.
    explicit ScatLineModel(ScatScenarios* pqScenarios, QObject* pqParent = nullptr);

    /// Gives depths their unit. Not owned, may be null and may go: then depths are shown as they are stored.
    void setDepthAttribute(const MatrixData* poDepth);

    /// The number of the line in a row, and the other way; −1 for none.
    int lineAt(int iRow) const;
    int rowOf(int iLine) const;
    /// The line in a row; a default one for none.
    DepthLineField::Line line(int iRow) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int iRole = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& qValue, int iRole = Qt::EditRole) override;
    QVariant headerData(int iSection, Qt::Orientation eOrientation, int iRole = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    const DepthLineField* field() const;
    std::vector<int> linesByDepth() const;
    void resetLines();
    void updateLines();
    void reorder(std::vector<int> viLines);
    QString shownText(const DepthLineField::Line& line, int iColumn) const;
    QString editedText(const DepthLineField::Line& line, int iColumn) const;
    QString toolTip(const DepthLineField::Line& line, int iColumn) const;
    bool changeLine(DepthLineField::Line& line, int iColumn, const QVariant& qValue) const;
    bool changeDepth(DepthLineField::Line& line, const QString& sText) const;

    QPointer<ScatScenarios> m_pqScenarios;
    MatrixDataPointer m_oDepth;
    std::vector<int> m_viLines; ///< numbers of lines by rows
};

} // namespace gkBase
