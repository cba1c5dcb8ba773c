#include "ColorMapEdits.h"

#include "MatrixData.h"
#include "MissingValue.h"
#include "QUnitLineEdit.h"
#include "UnitManager.h"
#include "UnitText.h"

#include <QFormLayout>

#include <boost/make_shared.hpp>

namespace gkBase {

ColorMapEdits::ColorMapEdits(const QString& sIntervalName, const QString& sNotSet, QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqMinEdit(newEdit(tr("Minimum"), sNotSet, "m_pqColorMapMinEdit"))
    , m_pqMaxEdit(newEdit(tr("Maximum"), sNotSet, "m_pqColorMapMaxEdit"))
    , m_pqIntervalEdit(newEdit(sIntervalName, sNotSet, "m_pqColorMapIntervalEdit"))
{
    m_pqMinEdit->setToolTip(tr("Where the first band begins, in the attribute's unit"));
    m_pqMaxEdit->setToolTip(tr("Where the last band ends, in the attribute's unit"));
    m_pqIntervalEdit->setToolTip(tr("The width of the bands, in the attribute's unit"));
    auto* pqForm = new QFormLayout(this);
    pqForm->setContentsMargins(0, 0, 0, 0);
    for (QUnitLineEdit* pqEdit : {m_pqMinEdit, m_pqMaxEdit, m_pqIntervalEdit})
        pqForm->addRow(pqEdit->accessibleName(), pqEdit);
}

QUnitLineEdit* ColorMapEdits::newEdit(const QString& sName, const QString& sNotSet, const char* pObjectName)
{
    auto* pqEdit = new QUnitLineEdit;
    pqEdit->setAccessibleName(sName);
    pqEdit->setObjectName(QLatin1String(pObjectName));
    pqEdit->setPlaceholderText(sNotSet);
    connect(pqEdit, &QUnitLineEdit::modelValueChanged, this, &ColorMapEdits::edited);
    return pqEdit;
}

RelationshipClasses::ColorMap ColorMapEdits::colorMap() const
{
    RelationshipClasses::ColorMap map;
    map.m_dMin = m_pqMinEdit->modelValue();
    map.m_dMax = m_pqMaxEdit->modelValue();
    const double dInterval = m_pqIntervalEdit->modelValue();
    map.m_dInterval = isMissing(dInterval) ? g_dMissingValue : dInterval / m_dDisplayScale;
    return map;
}

void ColorMapEdits::setColorMap(const RelationshipClasses::ColorMap& map)
{
    m_pqMinEdit->setModelValue(map.m_dMin, false);
    m_pqMaxEdit->setModelValue(map.m_dMax, false);
    m_pqIntervalEdit->setModelValue(isMissing(map.m_dInterval) ? g_dMissingValue : map.m_dInterval * m_dDisplayScale,
                                    false);
}

void ColorMapEdits::setAttribute(const MatrixData* poAttribute)
{
    const int iAttribute = poAttribute ? poAttribute->globalID() : -1;
    const double dScale = displayScale(poAttribute);
    if (iAttribute == m_iAttribute && dScale == m_dDisplayScale)
        return;
    const RelationshipClasses::ColorMap map = iAttribute == m_iAttribute ? colorMap() : RelationshipClasses::ColorMap();
    boost::shared_ptr<UnitManager> poUnit;
    boost::shared_ptr<UnitManager> poDifferences;
    if (poAttribute) {
        poUnit = poAttribute->unitManager();
        // A difference does not convert as a value does where the zeros of the units differ: it is kept as shown.
        poDifferences = boost::make_shared<UnitManager>(QString(), poUnit->getDisplayUnitTag());
    }
    m_pqMinEdit->unitManager(poUnit);
    m_pqMaxEdit->unitManager(poUnit);
    m_pqIntervalEdit->unitManager(poDifferences);
    m_iAttribute = iAttribute;
    m_dDisplayScale = dScale;
    setColorMap(map);
}

} // namespace gkBase
