#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRange.h"
#include "MatrixDataUndoStack.h"

#include <QSet>

#include <algorithm>

namespace gkBase {

namespace {

/// Calls visit(node) for every node below poNode in tree order until it returns true; the node where it stopped.
template <typename Node, typename Visit>
Node* findBelow(Node* poNode, const Visit& visit)
{
    for (int i = 0; i < poNode->childCount(); ++i) {
        Node* poChild = poNode->child(i);
        if (visit(poChild))
            return poChild;
        if (Node* poFound = findBelow(poChild, visit))
            return poFound;
    }
    return nullptr;
}

/// As above for attributes, the node itself included.
template <typename Node, typename Visit>
Node* findAttribute(Node* poNode, const Visit& visit)
{
    if (poNode->childCount() == 0)
        return poNode->isAttribute() && visit(poNode) ? poNode : nullptr;
    for (int i = 0; i < poNode->childCount(); ++i)
        if (Node* poFound = findAttribute(static_cast<Node*>(poNode->child(i)), visit))
            return poFound;
    return nullptr;
}

} // namespace

MatrixData* MatrixData::child(int i) const
{
    return i >= 0 && i < childCount() ? m_vChildren[static_cast<std::size_t>(i)].get() : nullptr;
}

int MatrixData::indexOfChild(const MatrixData* poNode) const
{
    if (!poNode || poNode->m_poParent != this)
        return -1;
    const auto it = std::find_if(m_vChildren.begin(), m_vChildren.end(),
                                 [poNode](const auto& poChild) { return poChild.get() == poNode; });
    return it == m_vChildren.end() ? -1 : static_cast<int>(it - m_vChildren.begin());
}

void MatrixData::appendChild(MatrixData* poNode, bool bSetOwner)
{
    if (bSetOwner && poNode && !MatrixDataNotifier::contains(poNode, this))
        poNode->setOwner(this);
    insertChild(childCount(), poNode);
}

void MatrixData::insertChild(int iIndex, MatrixData* poNode)
{
    if (!poNode || MatrixDataNotifier::contains(poNode, this)) // a node cannot stand below itself
        return;
    std::unique_ptr<MatrixData> poOwned;
    if (poNode->m_poParent)
        poOwned = poNode->m_poParent->detachChild(poNode->m_poParent->indexOfChild(poNode));
    else
        poOwned.reset(poNode);
    attachChild(iIndex, std::move(poOwned));
}

void MatrixData::attachChild(int iIndex, std::unique_ptr<MatrixData> poNode)
{
    poNode->m_poParent = this;
    poNode->m_bDetached = false;
    MatrixData* poAdded = poNode.get();
    m_vChildren.insert(m_vChildren.begin() + std::clamp(iIndex, 0, childCount()), std::move(poNode));
    poAdded->touchBranchDependents();
    notifyStructure();
}

std::unique_ptr<MatrixData> MatrixData::detachChild(int iIndex)
{
    MatrixData* poNode = child(iIndex);
    if (MatrixDataNotifier* pqNotifier = existingNotifier())
        emit pqNotifier->nodeAboutToBeRemoved(poNode);
    std::unique_ptr<MatrixData> poOwned = std::move(m_vChildren[static_cast<std::size_t>(iIndex)]);
    m_vChildren.erase(m_vChildren.begin() + iIndex);
    poOwned->m_poParent = nullptr;
    poOwned->m_bDetached = true;
    poOwned->touchBranchDependents();
    notifyStructure();
    return poOwned;
}

void MatrixData::touchBranchDependents()
{
    for (MatrixData* poDependent : m_vDependents)
        poDependent->touch();
    for (const auto& poChild : m_vChildren)
        poChild->touchBranchDependents();
}

bool MatrixData::isReachable(const MatrixData& node) const
{
    const MatrixData* poRoot = node.root();
    return !poRoot->m_bDetached || poRoot == root();
}

void MatrixData::removeChild(MatrixData* poNode)
{
    if (poNode == this || !MatrixDataNotifier::contains(this, poNode))
        return;
    MatrixData* poParent = poNode->m_poParent;
    const int iIndex = poParent->indexOfChild(poNode);
    std::unique_ptr<MatrixData> poOwned = poParent->detachChild(iIndex);
    if (MatrixDataUndoStack* pStack = existingUndoStack())
        pStack->adopt(poOwned, poParent, iIndex);
}

std::unique_ptr<MatrixData> MatrixData::takeChild(MatrixData* poNode)
{
    if (poNode == this || !MatrixDataNotifier::contains(this, poNode))
        return nullptr;
    return poNode->m_poParent->detachChild(poNode->m_poParent->indexOfChild(poNode));
}

std::vector<MatrixData*> MatrixData::leafs() const
{
    std::vector<MatrixData*> vpLeafs;
    findAttribute(this, [&vpLeafs](const MatrixData* poNode) {
        vpLeafs.push_back(const_cast<MatrixData*>(poNode));
        return false;
    });
    return vpLeafs;
}

MatrixData* MatrixData::getNode(int iColumn) const
{
    if (iColumn < 0)
        return nullptr;
    return const_cast<MatrixData*>(
        findAttribute(this, [&iColumn](const MatrixData* poNode) { return poNode->m_bSelected && iColumn-- == 0; }));
}

MatrixData* MatrixData::getNodeFromName(const QString& sName) const
{
    return const_cast<MatrixData*>(
        findBelow(this, [&sName](const MatrixData* poNode) { return poNode->m_sName == sName; }));
}

MatrixData* MatrixData::getFirstChildWithData() const
{
    return const_cast<MatrixData*>(
        findAttribute(this, [this](const MatrixData* poNode) { return poNode != this && poNode->recordCount() > 0; }));
}

MatrixData* MatrixData::nodeFromID(int iGlobalID) const
{
    return const_cast<MatrixData*>(
        findBelow(this, [iGlobalID](const MatrixData* poNode) { return poNode->m_iGlobalIdOfNode == iGlobalID; }));
}

MatrixData* MatrixData::root()
{
    return const_cast<MatrixData*>(std::as_const(*this).root());
}

const MatrixData* MatrixData::root() const
{
    const MatrixData* poNode = this;
    while (poNode->m_poParent)
        poNode = poNode->m_poParent;
    return poNode;
}

void MatrixData::createUniqueName(QString& sName, const MatrixData* poNamed) const
{
    QSet<QString> names;
    findBelow(this, [&names, poNamed](const MatrixData* poNode) {
        if (poNode != poNamed)
            names.insert(poNode->m_sName);
        return false;
    });
    const QString sWanted = sName;
    for (int i = 1; names.contains(sName); ++i)
        sName = sWanted + QLatin1Char('_') + QString::number(i);
}

bool MatrixData::isSelected() const
{
    bool bAttributes = false;
    const bool bAny = findAttribute(this, [&bAttributes](const MatrixData* poNode) {
        bAttributes = true;
        return poNode->m_bSelected;
    });
    return bAttributes ? bAny : m_bSelected;
}

void MatrixData::setSelected(bool bSelected, bool bDeselectSiblings)
{
    const auto select = [](MatrixData* poBranch, bool bOn) {
        poBranch->m_bSelected = bOn;
        findBelow(poBranch, [bOn](MatrixData* poNode) {
            poNode->m_bSelected = bOn;
            return false;
        });
    };
    MatrixData* poChanged = bDeselectSiblings && m_poParent ? m_poParent : this;
    if (poChanged != this)
        select(poChanged, false);
    select(this, bSelected);
    poChanged->notifyAttributes();
}

int MatrixData::numberOfSelectedItems() const
{
    int iCount = 0;
    findAttribute(this, [&iCount](const MatrixData* poNode) {
        iCount += poNode->m_bSelected ? 1 : 0;
        return false;
    });
    return iCount;
}

int MatrixData::maxNumbOfSelectedRows(int iStep, int iListSize) const
{
    if (iListSize > 0)
        return iStep < 1 ? iListSize : 1 + (iListSize - 1) / iStep;
    int iLongest = 0;
    findAttribute(this, [&iLongest](const MatrixData* poNode) {
        if (poNode->m_bSelected)
            iLongest = std::max(iLongest, poNode->recordCount());
        return false;
    });
    return iStep < 1 ? m_iRowOffSet + iLongest : 1 + iLongest / iStep;
}

} // namespace gkBase
