// Drag and drop of attributes: the payload, the questions before an overwrite, the changes.

#include "MatrixData.h"
#include "MatrixDataRestore.h"
#include "QTreeItemModel.h"
#include "QTreeItemModelChange.h"

#include <QApplication>
#include <QByteArray>
#include <QCoreApplication>
#include <QDataStream>
#include <QIODevice>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>

#include <algorithm>
#include <memory>

namespace gkBase {

namespace {

QString attributeMimeType()
{
    return QStringLiteral("4dorrel/attribute.text.list");
}

bool askInBox(const MatrixData* poNode)
{
    const QPointer<QMessageBox> pqBox = new QMessageBox(QApplication::activeWindow());
    pqBox->setIcon(QMessageBox::Question);
    pqBox->setWindowTitle(QTreeItemModel::tr("Drag/Drop Attribute(s)"));
    pqBox->setTextFormat(Qt::PlainText);
    pqBox->setText(QTreeItemModel::tr("Do you really want to overwrite the existing attribute cell data: %1?")
                       .arg(poNode->name()));
    pqBox->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    const int iAnswer = pqBox->exec();
    delete pqBox.data();
    return iAnswer != QMessageBox::No;
}

/// Number of attributes in a payload that is whole; −1 for one that is cut off or holds something else. Attributes
/// with other summary rows than their neighbours would stand beside them in the wrong rows.
int checkedCount(const QByteArray& oPayload, int iRowOffSet)
{
    QDataStream stream(oPayload);
    qint32 iCount = -1;
    stream >> iCount;
    if (stream.status() != QDataStream::Ok || iCount < 0 || iCount > oPayload.size())
        return -1;
    for (qint32 i = 0; i < iCount; ++i) {
        MatrixData oProbe;
        if (!oProbe.getDataFromStream(stream) || stream.status() != QDataStream::Ok || oProbe.childCount() > 0 ||
            oProbe.rowOffSet() != iRowOffSet)
            return -1;
    }
    return iCount;
}

} // namespace

void QTreeItemModel::setOverwriteQuestion(OverwriteQuestion fnQuestion)
{
    m_fnOverwriteQuestion = std::move(fnQuestion);
}

QStringList QTreeItemModel::mimeTypes() const
{
    return {attributeMimeType()};
}

Qt::DropActions QTreeItemModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

QMimeData* QTreeItemModel::mimeData(const QModelIndexList& lIndexes) const
{
    const std::vector<MatrixData*> vpAttributes = attributesOf(lIndexes);
    QByteArray oPayload;
    QDataStream stream(&oPayload, QIODevice::WriteOnly);
    stream << static_cast<qint32>(vpAttributes.size());
    for (const MatrixData* poAttribute : vpAttributes)
        poAttribute->putDataOnStream(stream);
    auto pqMimeData = std::make_unique<QMimeData>();
    pqMimeData->setData(attributeMimeType(), oPayload);
    return pqMimeData.release();
}

bool QTreeItemModel::canDropMimeData(const QMimeData* pqData, Qt::DropAction eAction, int iRow, int iColumn,
                                     const QModelIndex& parent) const
{
    return parent.isValid() && QAbstractItemModel::canDropMimeData(pqData, eAction, iRow, iColumn, parent);
}

bool QTreeItemModel::dropMimeData(const QMimeData* pqData, Qt::DropAction eAction, int iRow, int iColumn,
                                  const QModelIndex& parent)
{
    if (eAction == Qt::IgnoreAction)
        return true;
    if (!pqData || !pqData->hasFormat(attributeMimeType()) || iColumn > 1 || !parent.isValid() || !m_poDataRoot)
        return false;
    MatrixData* poTarget = nodeFromIndex(parent);
    const QByteArray oPayload = pqData->data(attributeMimeType());
    if (!poTarget)
        return false;
    int iCount = checkedCount(oPayload, (poTarget->owner() ? poTarget->owner() : poTarget)->rowOffSet());
    if (iCount < 0)
        return false;

    QDataStream stream(oPayload);
    stream >> iCount;
    bool bChanged = false;
    if (poTarget->owner()) {
        // The questions run the event loop, in which the tree and this model may change or go.
        const int iTargetId = poTarget->globalID();
        const QPointer<QTreeItemModel> pqThis(this);
        bChanged = dropOntoAttribute(poTarget, iCount, stream);
        if (!pqThis || !m_poDataRoot || m_poDataRoot->nodeFromID(iTargetId) != poTarget)
            return false;
    } else {
        bChanged = createAttributes(poTarget, iRow, iCount, stream);
    }
    emit updateView();
    emit treeItemSelected(parent);
    setModified(bChanged);
    return true;
}

bool QTreeItemModel::insertNewRows(int iRow, int iCount, QModelIndex& parent)
{
    MatrixData* poDataSet = parent.isValid() ? nodeFromIndex(parent) : nullptr;
    if (!poDataSet || poDataSet->owner())
        return false;
    if (iCount < 1)
        return true;
    const TreeReset oReset(*this);
    for (int i = 0; i < iCount; ++i) {
        auto poNode = std::make_unique<MatrixData>(QStringLiteral("New Inserted Item"), -1, -1, QMetaType::QString, 3);
        poNode->setOwner(poDataSet);
        poDataSet->insertChild(iRow + i, poNode.release());
    }
    return true;
}

bool QTreeItemModel::createAttributes(MatrixData* poDataSet, int iRow, int iCount, QDataStream& stream)
{
    const TreeReset oReset(*this);
    const int iFirst = iRow < 0 ? poDataSet->childCount() : std::min(iRow, poDataSet->childCount());
    QModelIndex dataSet = indexFromNode(poDataSet);
    if (!insertNewRows(iFirst, iCount, dataSet))
        return false;
    for (int i = iFirst; i < iFirst + iCount; ++i) {
        MatrixData* poNode = poDataSet->child(i);
        if (!dropDataFromStream(poNode, stream, true)) {
            for (int iLeft = iFirst + iCount - 1; iLeft >= i; --iLeft)
                m_poDataRoot->takeChild(poDataSet->child(iLeft));
            return i > iFirst;
        }
        auto poRestore = std::make_unique<MatrixDataRestore>(poNode, "Create Attribute (drag/drop): " + poNode->name());
        poRestore->storeInsertion(poNode);
        m_poDataRoot->appendUndoAction(poRestore.release(), true);
    }
    return iCount > 0;
}

bool QTreeItemModel::dropOntoAttribute(MatrixData* poFirst, int iCount, QDataStream& stream)
{
    const QPointer<QTreeItemModel> pqThis(this);
    const std::vector<int> viTargetIds = askForTargets(poFirst, iCount);
    return pqThis && m_poDataRoot && overwriteAttributes(viTargetIds, stream);
}

// The attributes from poFirst to the end of its data set, one for each item; all questions come before any change.
// A question may run the event loop: nodes are kept by their identifiers.
std::vector<int> QTreeItemModel::askForTargets(MatrixData* poFirst, int iCount)
{
    std::vector<int> viCandidateIds;
    const MatrixData* poDataSet = poFirst->owner();
    const int iFirst = poDataSet->indexOfChild(poFirst);
    for (int i = iFirst; i >= 0 && i < poDataSet->childCount() && i - iFirst < iCount; ++i)
        viCandidateIds.push_back(poDataSet->child(i)->globalID());

    const QPointer<QTreeItemModel> pqThis(this);
    const OverwriteQuestion fnQuestion = m_fnOverwriteQuestion ? m_fnOverwriteQuestion : askInBox;
    std::vector<int> viTargetIds;
    for (const int iId : viCandidateIds) {
        const MatrixData* poTarget = pqThis && m_poDataRoot ? m_poDataRoot->nodeFromID(iId) : nullptr;
        if (!poTarget)
            return {};
        if (fnQuestion(poTarget))
            viTargetIds.push_back(iId);
    }
    return viTargetIds;
}

// An attribute that the user kept takes nothing from the stream: the next one that may be overwritten gets the item.
bool QTreeItemModel::overwriteAttributes(const std::vector<int>& viTargetIds, QDataStream& stream)
{
    if (viTargetIds.empty())
        return false;
    const TreeReset oReset(*this);
    bool bChanged = false;
    for (const int iTargetId : viTargetIds) {
        MatrixData* poTarget = m_poDataRoot->nodeFromID(iTargetId);
        if (!poTarget)
            continue;
        auto poRestore = std::make_unique<MatrixDataRestore>(poTarget, "Drop Data on Attribute: " + poTarget->name());
        poRestore->storeContents(poTarget);
        if (!dropDataFromStream(poTarget, stream, false))
            break;
        m_poDataRoot->appendUndoAction(poRestore.release(), true);
        bChanged = true;
    }
    return bChanged;
}

bool QTreeItemModel::dropDataFromStream(MatrixData* poNode, QDataStream& stream, bool bMakeUniqueName)
{
    QString sName = poNode->name();
    const bool bVertex = poNode->isVertex();
    if (!poNode->getDataFromStream(stream))
        return false;
    poNode->setSelected(true, false);
    if (bMakeUniqueName) {
        sName = poNode->name();
        m_poDataRoot->createUniqueName(sName, poNode);
    }
    poNode->setName(sName);
    // Coordinates are a role in the data set, which a copy elsewhere does not take over.
    poNode->setVertex(bVertex);
    return true;
}

} // namespace gkBase
