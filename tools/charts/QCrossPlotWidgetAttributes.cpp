// Which attributes the cross plot panel shows, and the clusters that become one.

#include "CrossPlotAttributeGroup.h"
#include "CrossPlotClusterPage.h"
#include "CrossPlotPointPage.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "QCrossPlot.h"
#include "QCrossPlotWidget.h"
#include "QRelationshipItemModel.h"

#include <QApplication>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <unordered_set>

namespace gkBase {

namespace {

constexpr std::array g_optionalRoles = {CrossPlotRole::Color, CrossPlotRole::Symbol, CrossPlotRole::TadPole,
                                        CrossPlotRole::Third};

/// The number attributes of a data set. A depth says little against another attribute, so it comes last.
std::vector<MatrixData*> numbersDepthLast(const MatrixData* poDataSet)
{
    std::vector<MatrixData*> vpNumbers;
    if (!poDataSet)
        return vpNumbers;
    for (MatrixData* poLeaf : poDataSet->leafs()) {
        if (isNumericAttribute(poLeaf))
            vpNumbers.push_back(poLeaf);
    }
    std::stable_partition(vpNumbers.begin(), vpNumbers.end(), [](const MatrixData* poNode) {
        return !poNode->owner() || poNode->owner()->depthAttribute() != poNode;
    });
    return vpNumbers;
}

} // namespace

// ---- root and choosers ----------------------------------------------------------------------------------------------

void QCrossPlotWidget::setDataRoot(MatrixData* poRoot)
{
    if (poRoot != m_poRoot) {
        if (m_poRoot)
            m_poRoot->notifier()->disconnect(this);
        m_poRoot = poRoot;
        m_pModel->setDataRoot(poRoot);
        m_viSelectedRecords.clear();
        for (const CrossPlotRole eRole : g_optionalRoles)
            setOptionalAttribute(eRole, nullptr);
        setAttributes(nullptr, nullptr);
        if (m_poRoot) {
            MatrixDataNotifier* pqNotifier = m_poRoot->notifier();
            connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this,
                    &QCrossPlotWidget::slotNodeAboutToBeRemoved);
            connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                    &QCrossPlotWidget::slotRootAboutToBeDestroyed);
        }
    }
    updateDataSetSelectionBox();
}

void QCrossPlotWidget::updateDataSetSelectionBox()
{
    fillChoosers();
}

int QCrossPlotWidget::numberOfRecords() const
{
    return dataSetRecords(nodeX() ? nodeX() : nodeY());
}

void QCrossPlotWidget::fillChoosers()
{
    std::vector<AttributeEntry> vEntries = attributeEntries(m_poRoot);
    if (m_poClusters)
        vEntries.push_back({m_poClusters.get(), m_poClusters->name(), m_poClusters->recordCount()});
    m_pqAttributeGroup->setEntries(vEntries, numberOfRecords());
    showChosen();
}

void QCrossPlotWidget::showChosen()
{
    m_pqAttributeGroup->choose(CrossPlotRole::X, nodeX());
    m_pqAttributeGroup->choose(CrossPlotRole::Y, nodeY());
    for (const CrossPlotRole eRole : g_optionalRoles)
        m_pqAttributeGroup->choose(eRole, attribute(eRole));
}

MatrixData* QCrossPlotWidget::node(int iGlobalID) const
{
    if (m_poClusters && m_poClusters->globalID() == iGlobalID)
        return m_poClusters.get();
    return m_poRoot ? m_poRoot->nodeFromID(iGlobalID) : nullptr;
}

void QCrossPlotWidget::slotAttributeChosen(CrossPlotRole eRole, int iGlobalID)
{
    MatrixData* poNode = node(iGlobalID);
    if (eRole == CrossPlotRole::X) {
        if (nodeY() && dataSetRecords(nodeY()) == dataSetRecords(poNode))
            chooseAttributes(poNode, nodeY());
        else
            chooseDataSet(poNode);
    } else if (eRole == CrossPlotRole::Y) {
        chooseAttributes(nodeX(), poNode);
    } else {
        setOptionalAttribute(eRole, poNode);
        return;
    }
    emit signalUpdateChartData();
    // An owner reads again on the signal, with the rows that it knows; once is enough.
    if (m_bReadNeeded)
        updateCrossPlot();
}

// ---- attributes -----------------------------------------------------------------------------------------------------

void QCrossPlotWidget::setDataSet(MatrixData* poData)
{
    chooseDataSet(poData);
    updateCrossPlot();
}

void QCrossPlotWidget::chooseDataSet(MatrixData* poData)
{
    const bool bAttribute = poData && poData->isAttribute();
    const std::vector<MatrixData*> vpNumbers = numbersDepthLast(bAttribute ? poData->owner() : poData);
    const auto firstOther = [&vpNumbers](const MatrixData* poNode) {
        const auto it = std::find_if(vpNumbers.begin(), vpNumbers.end(),
                                     [poNode](const MatrixData* poNumber) { return poNumber != poNode; });
        return it == vpNumbers.end() ? nullptr : *it;
    };
    MatrixData* poX = bAttribute && isNumericAttribute(poData) ? poData : firstOther(nullptr);
    chooseAttributes(poX, firstOther(poX));
}

void QCrossPlotWidget::setAttributes(MatrixData* poX, MatrixData* poY)
{
    chooseAttributes(poX, poY);
    updateCrossPlot();
}

void QCrossPlotWidget::chooseAttributes(MatrixData* poX, MatrixData* poY)
{
    if (m_poX == poX && m_poY == poY)
        return;
    const int iFormerRecords = numberOfRecords();
    m_poX = MatrixDataPointer(poX);
    m_poY = MatrixDataPointer(poY);
    m_oLimits = {};
    m_bReadNeeded = true;
    m_pModel->clearClusters();
    if (numberOfRecords() != iFormerRecords) {
        // What belongs to other records says nothing about these points.
        for (const CrossPlotRole eRole : g_optionalRoles) {
            if (dataSetRecords(attribute(eRole)) != numberOfRecords())
                setAttribute(eRole, nullptr);
        }
        m_poClusters.reset();
        fillChoosers();
    }
    showChosen();
}

MatrixData* QCrossPlotWidget::attribute(CrossPlotRole eRole) const
{
    switch (eRole) {
    case CrossPlotRole::X:
        return nodeX();
    case CrossPlotRole::Y:
        return nodeY();
    case CrossPlotRole::Color:
        return m_pModel->colorAttribute();
    case CrossPlotRole::Symbol:
        return m_pModel->symbolAttribute();
    case CrossPlotRole::TadPole:
        return m_pModel->tadPoleAzimuthDataNode();
    case CrossPlotRole::Third:
        return m_pModel->thirdDimAttribute();
    }
    return nullptr;
}

void QCrossPlotWidget::setAttribute(CrossPlotRole eRole, MatrixData* poNode)
{
    if (attribute(eRole) == poNode)
        return;
    if (eRole == CrossPlotRole::Color) {
        // The bounds of a colour map belong to the attribute that they were made for.
        m_pModel->setColorMap(g_dMissingValue, g_dMissingValue, g_dMissingValue,
                              m_pqPointPage->colorMap().m_bRedToBlue);
        m_pModel->setColorAttribute(poNode);
    } else if (eRole == CrossPlotRole::Symbol) {
        m_pModel->setSymbolAttribute(poNode);
    } else if (eRole == CrossPlotRole::TadPole) {
        m_pModel->setTadPoleAzimuthDataNode(poNode);
    } else if (eRole == CrossPlotRole::Third) {
        m_pModel->setThirdDimAttribute(poNode);
        m_pModel->clearClusters();
    }
    m_pqAttributeGroup->choose(eRole, poNode);
}

void QCrossPlotWidget::setOptionalAttribute(CrossPlotRole eRole, MatrixData* poNode)
{
    setAttribute(eRole, poNode);
    showClasses();
    m_pqClusterPage->showClusters(*m_pModel);
    m_pqPlot->scheduleRedraw();
}

void QCrossPlotWidget::setColorAttribute(MatrixData* poAttribute)
{
    setOptionalAttribute(CrossPlotRole::Color, poAttribute);
}

void QCrossPlotWidget::setSymbolAttribute(MatrixData* poAttribute)
{
    setOptionalAttribute(CrossPlotRole::Symbol, poAttribute);
}

void QCrossPlotWidget::setThirdAttribute(MatrixData* poAttribute)
{
    setOptionalAttribute(CrossPlotRole::Third, poAttribute);
}

void QCrossPlotWidget::setTadpoleAttribute(MatrixData* poAzimuth)
{
    setOptionalAttribute(CrossPlotRole::TadPole, poAzimuth);
}

void QCrossPlotWidget::setCurrentColorItem(int iGlobalID)
{
    setColorAttribute(classNode(iGlobalID));
}

void QCrossPlotWidget::setCurrentSymbolItem(int iGlobalID)
{
    setSymbolAttribute(classNode(iGlobalID));
}

MatrixData* QCrossPlotWidget::classNode(int iGlobalID) const
{
    MatrixData* poNode = node(iGlobalID);
    if (!poNode || !poNode->isAttribute())
        return nullptr;
    // Before points are chosen any attribute may be meant.
    const bool bFits = numberOfRecords() < 0 || dataSetRecords(poNode) == numberOfRecords() ||
                       poNode->recordCount() == m_pModel->numberOfPoints();
    return bFits ? poNode : nullptr;
}

// ---- what goes ------------------------------------------------------------------------------------------------------

void QCrossPlotWidget::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    const auto goes = [poBranch](const MatrixData* poNode) {
        return poNode && MatrixDataNotifier::contains(poBranch, poNode);
    };
    for (const CrossPlotRole eRole : g_optionalRoles) {
        if (goes(attribute(eRole)))
            setOptionalAttribute(eRole, nullptr);
    }
    const bool bAxisGoes = goes(nodeX()) || goes(nodeY());
    if (bAxisGoes)
        chooseAttributes(goes(nodeX()) ? nullptr : nodeX(), goes(nodeY()) ? nullptr : nodeY());
    std::unordered_set<int> iGlobalIDs;
    for (const MatrixData* poLeaf : poBranch->leafs())
        iGlobalIDs.insert(poLeaf->globalID());
    m_pqAttributeGroup->removeEntries(iGlobalIDs);
    if (bAxisGoes)
        updateCrossPlot();
}

void QCrossPlotWidget::slotRootAboutToBeDestroyed()
{
    m_poRoot = nullptr;
    m_pModel->setDataRoot(nullptr);
    m_viSelectedRecords.clear();
    for (const CrossPlotRole eRole : g_optionalRoles)
        setOptionalAttribute(eRole, nullptr);
    setAttributes(nullptr, nullptr);
    updateDataSetSelectionBox();
}

void QCrossPlotWidget::slotDisplayUnitChanged(const QString& sCategory)
{
    for (const CrossPlotRole eRole :
         {CrossPlotRole::X, CrossPlotRole::Y, CrossPlotRole::Color, CrossPlotRole::Symbol, CrossPlotRole::Third}) {
        const MatrixData* poNode = attribute(eRole);
        if (poNode && poNode->unitCategory() == sCategory) {
            updateCrossPlot();
            return;
        }
    }
}

// ---- clusters -------------------------------------------------------------------------------------------------------

void QCrossPlotWidget::slotApplyClusters()
{
    if (!applyClusters(m_pqClusterPage->numberOfClusters(), m_pqClusterPage->clusterName()))
        m_pqClusterPage->showProblem(tr("There are no points to cluster"));
}

bool QCrossPlotWidget::applyClusters(int iClusters, const QString& sName)
{
    if (m_bReadNeeded)
        updateCrossPlot();
    {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto restoreCursor = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        const bool bPartSelection = m_pModel->partSelection();
        m_pModel->setPartSelection(m_pqClusterPage->selectedOnly());
        const bool bMade = m_pModel->buildClusters_KML(sName, iClusters);
        m_pModel->setPartSelection(bPartSelection);
        if (!bMade)
            return false;
    }
    m_pqClusterPage->setNumberOfClusters(iClusters);
    m_pqClusterPage->setClusterName(sName);
    m_pqClusterPage->showClusters(*m_pModel);
    colorByClusters(sName);
    return true;
}

void QCrossPlotWidget::colorByClusters(const QString& sName)
{
    const int iNextID = MatrixData::m_iGlobalID;
    emit createClusterAttribute(sName, m_pModel);
    m_pqPlot->scheduleRedraw();
    MatrixData* poKept = attributeMadeSince(iNextID);
    MatrixData* poColor = m_pModel->colorAttribute();
    // The owner may have written them into an attribute that was there, and coloured the points by it.
    if (!poKept && poColor && poColor != m_poClusters.get() && poColor->name() == sName)
        poKept = poColor;
    if (poKept) {
        m_poClusters.reset();
        fillChoosers();
        setColorAttribute(poKept);
        return;
    }
    auto poClusters = std::make_unique<MatrixData>(sName, 0, 1, QMetaType::Int);
    const std::span<const int> viIDs = m_pModel->clusterIDs();
    MatrixColumn column(QMetaType::Int, static_cast<int>(viIDs.size()));
    for (int i = 0; i < column.size(); ++i) {
        const int iCluster = viIDs[static_cast<std::size_t>(i)];
        if (iCluster >= 0)
            column.setValue(i, iCluster);
    }
    poClusters->setColumn(0, std::move(column));
    m_poClusters = std::move(poClusters);
    fillChoosers();
    setColorAttribute(m_poClusters.get());
}

/// The attribute of whole numbers, one for each point, that an owner has added to the tree since that
/// MatrixData::m_iGlobalID; null when it has not.
MatrixData* QCrossPlotWidget::attributeMadeSince(int iGlobalID) const
{
    if (!m_poRoot)
        return nullptr;
    for (MatrixData* poLeaf : m_poRoot->leafs()) {
        if (poLeaf->globalID() >= iGlobalID && poLeaf->recordCount() == m_pModel->numberOfPoints() &&
            isNumericAttribute(poLeaf))
            return poLeaf;
    }
    return nullptr;
}

} // namespace gkBase
