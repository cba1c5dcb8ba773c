#pragma once

#include "QComboBoxItemDelegate.h"

namespace gkBase {

/// The editors of the summary table: the display units that a column's unit converts to in the unit row, the unit
/// categories of the registry in the category row.
class GKBASETOOLS_EXPORT UnitItemUnitDelegateImpl : public QComboBoxItemDelegate
{
    Q_OBJECT
public:
    explicit UnitItemUnitDelegateImpl(QObject* pqParent = nullptr);

    QStringList items(const QModelIndex& index) const override;

protected:
    QString currentItem(const QModelIndex& index) const override;
};

} // namespace gkBase
