#pragma once

#include "gkBaseToolsExport.h"

#include <QComboBox>
#include <QIcon>
#include <QString>

#include <functional>
#include <unordered_set>
#include <vector>

namespace gkBase {

class MatrixData;

/// An attribute that a chart can show.
struct AttributeEntry
{
    MatrixData* m_poNode = nullptr; ///< not owned, never null in a list of entries
    QString m_sName;                ///< "data set: attribute" when there is more than one data set
    int m_iRecords = 0;             ///< of the data set
};

/// All attributes below a root in tree order, without those of a branch that is about to go (null: none goes).
GKBASETOOLS_EXPORT std::vector<AttributeEntry> attributeEntries(const MatrixData* poRoot,
                                                                const MatrixData* poLeaving = nullptr);

/// Records of the data set of an attribute; −1 for null.
GKBASETOOLS_EXPORT int dataSetRecords(const MatrixData* poAttribute);

/// Double, int or bool cells: what a chart can place along an axis. False for null.
GKBASETOOLS_EXPORT bool isNumericAttribute(const MatrixData* poNode);

/// A small square of the colour for the entries of a combo box, framed so that it shows on every desktop.
GKBASETOOLS_EXPORT QIcon colorSwatch(const QComboBox& oBox, const QColor& oColor);

/// A combo box from which the user picks an attribute. Entries are kept by MatrixData::globalID(), so that a node that
/// is gone is never touched.
class GKBASETOOLS_EXPORT AttributeChooser : public QComboBox
{
    Q_OBJECT
public:
    using Filter = std::function<bool(const AttributeEntry&)>;

    /// bOptional: the first entry is "None". Otherwise the box is blank while nothing is chosen.
    AttributeChooser(const QString& sAccessibleName, bool bOptional, QWidget* pqParent = nullptr);

    /// Offers the entries that pass the filter. The chosen one stays chosen when it is among them.
    void setEntries(const std::vector<AttributeEntry>& vEntries, const Filter& filter);
    /// Drops what the set of MatrixData::globalID() holds. Emits nothing.
    void removeEntries(const std::unordered_set<int>& iGlobalIDs);
    /// Null, or a node that is not offered, chooses none. Emits nothing.
    void choose(const MatrixData* poNode);
    /// The MatrixData::globalID() of the chosen attribute, −1 for none.
    int chosenID() const;

signals:
    /// The user has picked an entry; −1 for none.
    void attributeChosen(int iGlobalID);

private:
    void chooseID(int iGlobalID);

    bool m_bOptional;
};

} // namespace gkBase
