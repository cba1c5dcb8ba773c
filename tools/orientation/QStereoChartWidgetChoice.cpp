// The data sets and attributes that the stereonet panel showed in a former session.

#include "MatrixData.h"
#include "QStereoChartWidget.h"
#include "StereoPointPage.h"

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

QString nameOf(const MatrixData* poNode)
{
    return poNode ? poNode->name() : QString();
}

QString dataSetName(const MatrixData* poAttribute)
{
    return poAttribute ? nameOf(poAttribute->owner()) : QString();
}

/// The attribute of that name with that many records, in the data set if it has one.
MatrixData* attributeOfName(const std::vector<AttributeEntry>& vEntries, const QString& sName, int iRecords,
                            const MatrixData* poDataSet)
{
    MatrixData* poFound = nullptr;
    for (const AttributeEntry& entry : vEntries) {
        if (sName.isEmpty() || entry.m_iRecords != iRecords || entry.m_poNode->name() != sName)
            continue;
        if (entry.m_poNode->owner() == poDataSet)
            return entry.m_poNode;
        if (!poFound)
            poFound = entry.m_poNode;
    }
    return poFound;
}

/// The data set of orientations with that name.
MatrixData* dataSetOfName(const std::vector<AttributeEntry>& vEntries, const QString& sName)
{
    const auto it = std::find_if(vEntries.begin(), vEntries.end(), [&sName](const AttributeEntry& entry) {
        const MatrixData* poDataSet = entry.m_poNode->owner();
        return poDataSet && poDataSet->name() == sName && poDataSet->dipAttribute() && poDataSet->azimuthAttribute();
    });
    return sName.isEmpty() || it == vEntries.end() ? nullptr : it->m_poNode->owner();
}

} // namespace

/// What is still waited for was chosen as well.
StereoChartChoice QStereoChartWidget::choice() const
{
    StereoChartChoice choice = m_oWanted;
    if (nodeAngle() || nodeAzimuth()) {
        choice.m_sDataSet = dataSetName(nodeAngle());
        choice.m_sAngle = nameOf(nodeAngle());
        choice.m_sAzimuth = nameOf(nodeAzimuth());
    }
    if (const MatrixData* poAngle = layer(Second).m_poAngle.get())
        choice.m_sSecondDataSet = dataSetName(poAngle);
    if (const MatrixData* poAngle = layer(Lineations).m_poAngle.get())
        choice.m_sLineations = dataSetName(poAngle);
    const QRelationshipItemModel& model = *relationshipItemModel();
    if (model.colorAttribute()) {
        choice.m_sColorAttribute = nameOf(model.colorAttribute());
        choice.m_oColorMap = m_pqPointPage->colorMap();
    }
    if (model.symbolAttribute())
        choice.m_sSymbolAttribute = nameOf(model.symbolAttribute());
    return choice;
}

/// Chooses what there is now; the rest is waited for until it comes or something else is chosen. Reads nothing.
void QStereoChartWidget::takeWanted()
{
    const std::vector<AttributeEntry> vEntries = attributeEntries(m_poRoot);
    const auto it = std::find_if(vEntries.begin(), vEntries.end(), [this](const AttributeEntry& entry) {
        return !m_oWanted.m_sAngle.isEmpty() && entry.m_poNode->name() == m_oWanted.m_sAngle &&
               dataSetName(entry.m_poNode) == m_oWanted.m_sDataSet;
    });
    if (it != vEntries.end()) {
        MatrixData* poDataSet = it->m_poNode->owner();
        MatrixData* poAzimuth = attributeOfName(vEntries, m_oWanted.m_sAzimuth, it->m_iRecords, poDataSet);
        chooseAttributes(it->m_poNode, poAzimuth ? poAzimuth : poDataSet->azimuthAttribute());
    } else if (nodeAngle()) {
        m_oWanted.forgetOrientations(); // something else is shown
    }
    for (const LayerIndex eLayer : {Second, Lineations}) {
        QString& sName = eLayer == Second ? m_oWanted.m_sSecondDataSet : m_oWanted.m_sLineations;
        if (MatrixData* poDataSet = dataSetOfName(vEntries, sName)) {
            sName.clear();
            assignFurtherDataSet(eLayer, poDataSet);
            m_bReadNeeded = true;
        }
    }
    takeWantedClasses();
    showChosen();
}

void QStereoChartWidget::takeWantedClasses()
{
    if (!nodeAngle() || (m_oWanted.m_sColorAttribute.isEmpty() && m_oWanted.m_sSymbolAttribute.isEmpty()))
        return;
    const std::vector<AttributeEntry> vEntries = attributeEntries(m_poRoot);
    const auto find = [&](const QString& sName) {
        return attributeOfName(vEntries, sName, dataSetRecords(nodeAngle()), nodeAngle()->owner());
    };
    if (MatrixData* poColor = find(m_oWanted.m_sColorAttribute)) {
        m_oWanted.m_sColorAttribute.clear();
        setClassAttribute(true, poColor);
        m_pqPointPage->setColorMap(std::exchange(m_oWanted.m_oColorMap, {}));
        slotColorMapChanged();
    }
    if (MatrixData* poSymbol = find(m_oWanted.m_sSymbolAttribute)) {
        m_oWanted.m_sSymbolAttribute.clear();
        setClassAttribute(false, poSymbol);
    }
}

} // namespace gkBase
