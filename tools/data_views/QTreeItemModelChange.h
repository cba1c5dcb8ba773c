#pragma once

#include "QTreeItemModel.h"

namespace gkBase {

/// While it lives, the model does not answer the announcements of the changes that it makes itself.
class QTreeItemModel::OwnChange
{
public:
    explicit OwnChange(QTreeItemModel& model)
        : m_model(model)
    {
        ++m_model.m_iOwnChanges;
    }
    ~OwnChange() { --m_model.m_iOwnChanges; }
    OwnChange(const OwnChange&) = delete;
    OwnChange& operator=(const OwnChange&) = delete;

private:
    QTreeItemModel& m_model;
};

/// A reset of the model around changes of its own; inside another one it joins that, and it takes
/// over the reset that an announced removal has left open. No dialog may open while it lives.
class QTreeItemModel::TreeReset
{
public:
    explicit TreeReset(QTreeItemModel& model)
        : m_oChange(model)
        , m_model(model)
        , m_bOuter(!model.m_bResetting || model.m_iOwnChanges == 1)
    {
        if (m_model.m_bResetting)
            return;
        m_model.m_bResetting = true;
        m_model.beginResetModel();
        m_model.dropPersistentIndexes();
    }
    ~TreeReset()
    {
        if (!m_bOuter)
            return;
        m_model.m_bResetting = false;
        m_model.endResetModel();
    }
    TreeReset(const TreeReset&) = delete;
    TreeReset& operator=(const TreeReset&) = delete;

private:
    const OwnChange m_oChange;
    QTreeItemModel& m_model;
    const bool m_bOuter;
};

} // namespace gkBase
