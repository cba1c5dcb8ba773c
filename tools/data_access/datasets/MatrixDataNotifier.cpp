#include "MatrixDataNotifier.h"

#include "MatrixData.h"

#include <utility>

namespace gkBase {

MatrixDataNotifier::Batch::Batch(MatrixData* poNode)
    : m_pqNotifier(poNode ? poNode->notifier() : nullptr)
{
    if (m_pqNotifier)
        ++m_pqNotifier->m_iBatchDepth;
}

MatrixDataNotifier::Batch::~Batch()
{
    if (m_pqNotifier)
        m_pqNotifier->endBatch();
}

bool MatrixDataNotifier::contains(const MatrixData* poBranch, const MatrixData* poNode)
{
    if (!poBranch)
        return false;
    for (; poNode; poNode = poNode->parentNode())
        if (poNode == poBranch)
            return true;
    return false;
}

void MatrixDataNotifier::announceValues(MatrixData* poNode)
{
    if (m_iBatchDepth > 0)
        m_oValues.add(poNode);
    else
        emit valuesChanged(poNode);
}

void MatrixDataNotifier::announceAttributes(MatrixData* poNode)
{
    if (m_iBatchDepth > 0)
        m_oAttributes.add(poNode);
    else
        emit attributesChanged(poNode);
}

void MatrixDataNotifier::endBatch()
{
    if (--m_iBatchDepth > 0)
        return;
    // A listener may remove nodes, or the whole tree.
    const QPointer<MatrixDataNotifier> pqSelf(this);
    const std::vector<MatrixDataPointer> vValues = m_oValues.take();
    const std::vector<MatrixDataPointer> vAttributes = m_oAttributes.take();
    const auto isHere = [&pqSelf](const MatrixDataPointer& poNode) {
        return pqSelf && poNode && poNode->existingNotifier() == pqSelf;
    };
    for (const MatrixDataPointer& poNode : vAttributes)
        if (isHere(poNode))
            emit attributesChanged(poNode.get());
    for (const MatrixDataPointer& poNode : vValues)
        if (isHere(poNode))
            emit valuesChanged(poNode.get());
}

void MatrixDataNotifier::Pending::add(MatrixData* poNode)
{
    if (m_known.insert(poNode).second)
        m_vNodes.push_back(MatrixDataPointer(poNode));
}

std::vector<MatrixDataPointer> MatrixDataNotifier::Pending::take()
{
    m_known.clear();
    return std::exchange(m_vNodes, {});
}

} // namespace gkBase
