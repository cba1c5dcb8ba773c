#pragma once

#include "gkBaseQtExport.h"

#include <memory>

namespace gkBase {

class MatrixData;

/// A pointer to a node that does not own it and becomes null when the node is destroyed.
class GKBASEQT_EXPORT MatrixDataPointer
{
public:
    MatrixDataPointer() = default;
    MatrixDataPointer(const MatrixData* poNode);

    MatrixData* get() const { return m_pHandle ? *m_pHandle : nullptr; }
    MatrixData* operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }
    friend bool operator==(const MatrixDataPointer& a, const MatrixData* b) { return a.get() == b; }

private:
    std::shared_ptr<MatrixData*> m_pHandle; ///< shared by all pointers to the node, emptied by its destructor
};

} // namespace gkBase
