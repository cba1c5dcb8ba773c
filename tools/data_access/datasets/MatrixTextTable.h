#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace gkBase {

/// The distinct texts of a column, numbered in order of first appearance. The look-up index stores numbers only
/// (at most 16 bytes a text), so that a column whose texts never repeat costs little more than the texts.
class MatrixTextTable
{
public:
    /// The number of the text, added when it is new.
    std::int32_t code(const QString& sText);
    /// The number of the text; −1 when it is not there.
    std::int32_t find(const QString& sText) const;
    const std::vector<QString>& texts() const { return m_vTexts; }
    std::size_t memoryUsage() const;

private:
    /// Where the text stands in the index, or the free place for it; the index must not be empty.
    std::size_t slotOf(const QString& sText) const;
    void rehash(std::size_t nSlots);

    std::vector<QString> m_vTexts;
    std::vector<std::int32_t> m_viSlots; ///< open addressing, a power of two long; −1 = free
};

} // namespace gkBase
