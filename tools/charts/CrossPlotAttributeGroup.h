#pragma once

#include "AttributeChooser.h"
#include "gkBaseToolsExport.h"

#include <QGroupBox>

#include <array>
#include <unordered_set>
#include <vector>

namespace gkBase {

/// What an attribute is for in a cross plot.
enum class CrossPlotRole
{
    X,
    Y,
    Color,
    Symbol,
    TadPole,
    Third
};

/// The choosers of the cross plot's attributes. Number attributes are offered for the axes and tadpoles, all kinds for
/// colour and symbol; all but x must have as many records as the points.
class GKBASETOOLS_EXPORT CrossPlotAttributeGroup : public QGroupBox
{
    Q_OBJECT
public:
    /// The chooser of the third coordinate stands elsewhere but is filled here. Not owned.
    explicit CrossPlotAttributeGroup(AttributeChooser* pqThirdChooser, QWidget* pqParent = nullptr);

    /// iRecords: number of points, −1 while it is not known.
    void setEntries(const std::vector<AttributeEntry>& vEntries, int iRecords);
    /// Attributes that are about to go are not offered any more.
    void removeEntries(const std::unordered_set<int>& iGlobalIDs);
    /// Shows what is chosen; null is none. Emits nothing.
    void choose(CrossPlotRole eRole, const MatrixData* poNode);

signals:
    /// The user has chosen another attribute; −1 for none.
    void attributeChosen(gkBase::CrossPlotRole eRole, int iGlobalID);
    void swapWanted();

private:
    static constexpr std::size_t s_iRoles = 6;

    AttributeChooser* newChooser(CrossPlotRole eRole, const QString& sName, const QString& sToolTip);
    AttributeChooser* chooser(CrossPlotRole eRole) const { return m_vpChoosers[static_cast<std::size_t>(eRole)]; }

    std::array<AttributeChooser*, s_iRoles> m_vpChoosers{}; ///< by role
};

} // namespace gkBase
