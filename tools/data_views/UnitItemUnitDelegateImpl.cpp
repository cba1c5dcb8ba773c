#include "UnitItemUnitDelegateImpl.h"

#include "QVertexMinMaxItemModel.h"

namespace gkBase {

UnitItemUnitDelegateImpl::UnitItemUnitDelegateImpl(QObject* pqParent)
    : QComboBoxItemDelegate(pqParent)
{
}

QStringList UnitItemUnitDelegateImpl::items(const QModelIndex& index) const
{
    const auto* pqModel = qobject_cast<const QVertexMinMaxItemModel*>(index.model());
    return pqModel ? pqModel->choices(index) : QStringList();
}

QString UnitItemUnitDelegateImpl::currentItem(const QModelIndex& index) const
{
    const auto* pqModel = qobject_cast<const QVertexMinMaxItemModel*>(index.model());
    return pqModel ? pqModel->currentChoice(index) : QString();
}

} // namespace gkBase
