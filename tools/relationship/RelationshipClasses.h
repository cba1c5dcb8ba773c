#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QMap>
#include <QMetaType>
#include <QVariant>

#include <set>
#include <span>
#include <vector>

namespace gkBase {

class MatrixData;

/// The classes of a colour or symbol attribute: the class id of each record, and the name and colour of each class.
/// Id 0 is that of records without a value; legends do not list it.
class GKBASETOOLS_EXPORT RelationshipClasses
{
public:
    /// Bands of a colour map in model units; 99999.0 chooses a number from the values.
    struct ColorMap
    {
        double m_dMin;
        double m_dMax;
        double m_dInterval;
        bool m_bRedToBlue = false;

        ColorMap(); ///< all chosen from the values, from blue to red

        bool operator==(const ColorMap&) const = default;
    };

    /// Whole numbers with more distinct values than this are banded by the colour map, like other numbers.
    static constexpr int s_iMaximumValueClasses = 64;

    /// No classes.
    RelationshipClasses() = default;
    /// Reads the classes of an attribute: one per value for texts, flags, colours and whole numbers (also whole
    /// numbers held as doubles, such as cluster ids), one per band of the colour map for other numbers. Null: none.
    RelationshipClasses(const MatrixData* poAttribute, const ColorMap& oColorMap);

    bool isOn() const { return m_bOn; }
    /// The type of the attribute's cells, Double without an attribute. QColor: the colours are the data's own.
    QMetaType::Type cellType() const { return m_eCellType; }
    /// True when a class is a band of the colour map.
    bool isBanded() const { return m_bBanded; }
    /// One id per record; 0 = no value.
    std::span<const int> ids() const { return m_viIds; }
    int id(int iRecord) const; ///< 0 out of range
    /// Ids run from 0 to this; −1 without classes.
    int highestId() const { return static_cast<int>(m_voColors.size()) - 1; }
    const QMap<int, QVariant>& names() const { return m_names; }
    QMap<int, QColor> colors() const;
    QColor color(int iClass) const; ///< invalid for a class that does not exist
    /// False when there is no such class or it has that colour.
    bool setColor(int iClass, const QColor& oColor);
    /// Takes over the colours that setColor() gave to classes of the same name: for classes that were read again.
    void adoptColors(const RelationshipClasses& former);

private:
    bool m_bOn = false;
    bool m_bBanded = false;
    QMetaType::Type m_eCellType = QMetaType::Double;
    std::vector<int> m_viIds;
    QMap<int, QVariant> m_names;
    std::vector<QColor> m_voColors; ///< by id
    std::set<int> m_recolored;      ///< ids that setColor() changed
};

} // namespace gkBase
