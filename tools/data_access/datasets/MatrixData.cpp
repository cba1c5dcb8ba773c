#include "MatrixData.h"

#include "MatrixDataNotifier.h"
#include "MatrixDataRange.h"
#include "MatrixDataUndoStack.h"
#include "UnitManager.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace gkBase {

int MatrixData::m_iGlobalID = 0;

MatrixDataPointer::MatrixDataPointer(const MatrixData* poNode)
    : m_pHandle(poNode ? poNode->handle() : nullptr)
{
}

MatrixData::MatrixData(const QString& sName, int iRows, int iColumns, QMetaType::Type eType, int iRowOffSet)
    : m_sName(sName)
    , m_eType(MatrixColumn::columnType(eType))
    , m_iRowOffSet(std::max(iRowOffSet, 0))
    , m_iGlobalIdOfNode(m_iGlobalID++)
    , m_dDefaultValue2(g_dMissingValue)
{
    for (int i = 0; i < iColumns; ++i)
        m_vColumns.emplace_back(m_eType, std::max(iRows, 0));
}

MatrixData::MatrixData(const MatrixData& other, bool bDeep)
    : m_eType(other.m_eType)
    , m_iRowOffSet(other.m_iRowOffSet)
    , m_iGlobalIdOfNode(m_iGlobalID++)
    , m_dDefaultValue2(other.m_dDefaultValue2)
{
    copyProperties(other);
    if (bDeep) {
        copyColumns(other);
        copyChildren(other);
    }
}

MatrixData& MatrixData::operator=(const MatrixData& other)
{
    if (this == &other)
        return *this;
    MatrixData copy(other); // the other node may stand below this one
    MatrixData::swapContents(copy);
    valuesChanged();
    notifyAttributes();
    return *this;
}

MatrixData::~MatrixData()
{
    if (m_poNotifier)
        emit m_poNotifier->rootAboutToBeDestroyed();
    if (m_pHandle)
        *m_pHandle = nullptr;
    for (MatrixData* poDependent : m_vDependents)
        poDependent->touch();
    // Records may own removed nodes; they go while the tree still stands.
    m_poUndoStack.reset();
    m_vChildren.clear();
}

MatrixData* MatrixData::clone() const
{
    return new MatrixData(*this, true);
}

std::shared_ptr<MatrixData*> MatrixData::handle() const
{
    if (!m_pHandle)
        m_pHandle = std::make_shared<MatrixData*>(const_cast<MatrixData*>(this));
    return m_pHandle;
}

void MatrixData::copyProperties(const MatrixData& other)
{
    m_sName = other.m_sName;
    m_eType = other.m_eType;
    m_iRowOffSet = other.m_iRowOffSet;
    m_lColumnHeaders = other.m_lColumnHeaders;
    m_bSelected = other.m_bSelected;
    m_bVertex = other.m_bVertex;
    m_bEditable = other.m_bEditable;
    m_oColor = other.m_oColor;
    m_qDefaultValue1 = other.m_qDefaultValue1;
    m_dDefaultValue2 = other.m_dDefaultValue2;
    m_poRegistry = other.m_poRegistry;
    m_poUnitManager = other.m_poUnitManager;
}

void MatrixData::copyColumns(const MatrixData& other)
{
    m_vColumns.clear();
    for (int i = 0; i < other.columnCount(); ++i)
        m_vColumns.push_back(other.column(i));
}

void MatrixData::copyChildren(const MatrixData& other)
{
    for (const auto& poChild : other.m_vChildren)
        attachChild(childCount(), std::unique_ptr<MatrixData>(poChild->clone()));

    // Both branches have the same shape: pair their nodes up.
    NodeMap nodes{{&other, this}};
    std::vector<std::pair<const MatrixData*, MatrixData*>> vPairs{{&other, this}};
    for (std::size_t n = 0; n < vPairs.size(); ++n) {
        const auto [poOld, poNew] = vPairs[n];
        for (int i = 0; i < poOld->childCount(); ++i) {
            vPairs.emplace_back(poOld->child(i), poNew->child(i));
            nodes.emplace(vPairs.back());
        }
    }
    for (const auto& [poOld, poNew] : vPairs) {
        if (poNew == this)
            continue;
        if (const auto it = nodes.find(poOld->owner()); it != nodes.end())
            poNew->setOwner(it->second);
        poNew->relink(nodes);
    }
}

void MatrixData::swapContents(MatrixData& other)
{
    if (MatrixDataNotifier* pqNotifier = existingNotifier())
        for (const auto& poChild : m_vChildren)
            emit pqNotifier->nodeAboutToBeRemoved(poChild.get());
    const bool bChildren = !m_vChildren.empty() || !other.m_vChildren.empty();

    std::swap(m_sName, other.m_sName);
    std::swap(m_eType, other.m_eType);
    std::swap(m_iRowOffSet, other.m_iRowOffSet);
    std::swap(m_vColumns, other.m_vColumns);
    std::swap(m_lColumnHeaders, other.m_lColumnHeaders);
    std::swap(m_bSelected, other.m_bSelected);
    std::swap(m_bVertex, other.m_bVertex);
    std::swap(m_bEditable, other.m_bEditable);
    std::swap(m_oColor, other.m_oColor);
    std::swap(m_qDefaultValue1, other.m_qDefaultValue1);
    std::swap(m_dDefaultValue2, other.m_dDefaultValue2);
    std::swap(m_poUnitManager, other.m_poUnitManager);
    std::swap(m_vChildren, other.m_vChildren);
    adoptChildren(&other);
    other.adoptChildren(this);
    other.m_bDetached = true;
    touch();
    other.touch();
    if (bChildren)
        notifyStructure();
}

void MatrixData::adoptChildren(MatrixData* poFormerParent)
{
    for (const auto& poChild : m_vChildren) {
        poChild->m_poParent = this;
        if (poChild->owner() == poFormerParent)
            poChild->setOwner(this);
    }
}

bool MatrixData::isIdenticalTo(const MatrixData& other) const
{
    if (typeid(*this) != typeid(other) || childCount() != other.childCount() || columnCount() != other.columnCount())
        return false;
    const bool bSameUnit = m_poUnitManager == other.m_poUnitManager ||
                           (m_poUnitManager && other.m_poUnitManager && *m_poUnitManager == *other.m_poUnitManager);
    const bool bSameColor =
        m_oColor.isValid() == other.m_oColor.isValid() && m_oColor.rgba64() == other.m_oColor.rgba64();
    if (!bSameUnit || !bSameColor || m_sName != other.m_sName || m_eType != other.m_eType ||
        m_iRowOffSet != other.m_iRowOffSet || m_lColumnHeaders != other.m_lColumnHeaders ||
        m_bSelected != other.m_bSelected || m_bVertex != other.m_bVertex || m_bEditable != other.m_bEditable ||
        m_qDefaultValue1 != other.m_qDefaultValue1 || m_dDefaultValue2 != other.m_dDefaultValue2)
        return false;
    if (static_cast<bool>(m_poOwner) != static_cast<bool>(other.m_poOwner) || !hasEqualExtras(other))
        return false;
    for (int i = 0; i < columnCount(); ++i)
        if (!(column(i) == other.column(i)))
            return false;
    for (int i = 0; i < childCount(); ++i)
        if (!child(i)->isIdenticalTo(*other.child(i)))
            return false;
    return true;
}

bool MatrixData::hasEqualExtras(const MatrixData&) const
{
    return true;
}

void MatrixData::relink(const NodeMap&) {}

std::size_t MatrixData::memoryUsage() const
{
    std::size_t nBytes = 0;
    for (const MatrixColumn& oColumn : m_vColumns)
        nBytes += oColumn.memoryUsage();
    for (const auto& poChild : m_vChildren)
        nBytes += poChild->memoryUsage();
    return nBytes;
}

void MatrixData::setName(const QString& sName)
{
    if (m_sName == sName)
        return;
    m_sName = sName;
    notifyAttributes();
}

void MatrixData::setColor(const QColor& oColor)
{
    if (m_oColor == oColor)
        return;
    m_oColor = oColor;
    notifyAttributes();
}

MatrixDataNotifier* MatrixData::notifier()
{
    MatrixData* poRoot = root();
    if (!poRoot->m_poNotifier)
        poRoot->m_poNotifier = std::make_unique<MatrixDataNotifier>();
    return poRoot->m_poNotifier.get();
}

MatrixDataNotifier* MatrixData::existingNotifier() const
{
    return root()->m_poNotifier.get();
}

void MatrixData::notifyAttributes()
{
    if (MatrixDataNotifier* pqNotifier = existingNotifier())
        pqNotifier->announceAttributes(this);
}

void MatrixData::notifyStructure()
{
    if (MatrixDataNotifier* pqNotifier = existingNotifier())
        emit pqNotifier->structureChanged(this);
}

} // namespace gkBase
