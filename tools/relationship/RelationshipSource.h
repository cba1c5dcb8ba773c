#pragma once

#include "MatrixDataPointer.h"
#include "gkBaseToolsExport.h"

#include <QString>

#include <QtGlobal>

namespace gkBase {

/// An attribute that a point model copies values from, and the state in which it was read last. Not owned; null once
/// it is destroyed.
class GKBASETOOLS_EXPORT RelationshipSource
{
public:
    enum Change
    {
        Unchanged,
        OtherValues, ///< the same attribute with other values or in another unit
        OtherNode    ///< another attribute, or none any more
    };

    MatrixData* get() const { return m_poNode.get(); }
    explicit operator bool() const { return get() != nullptr; }
    void set(const MatrixData* poNode) { m_poNode = MatrixDataPointer(poNode); }
    /// What happened since the last call; the caller reads the attribute when something did.
    Change takeChange();

private:
    MatrixDataPointer m_poNode;
    int m_iReadNode = -1; ///< identifier, since a new node may stand where a destroyed one stood
    quint64 m_iReadRevision = 0;
    QString m_sReadUnit; ///< display unit and decimals: names of classes are written in them
};

} // namespace gkBase
