#include "MatrixTextTable.h"

#include <QHash>

namespace gkBase {

std::int32_t MatrixTextTable::code(const QString& sText)
{
    if (m_viSlots.size() < 2 * (m_vTexts.size() + 1))
        rehash(m_viSlots.empty() ? 16 : 2 * m_viSlots.size());
    const std::size_t n = slotOf(sText);
    if (m_viSlots[n] >= 0)
        return m_viSlots[n];
    m_viSlots[n] = static_cast<std::int32_t>(m_vTexts.size());
    m_vTexts.push_back(sText);
    return m_viSlots[n];
}

std::int32_t MatrixTextTable::find(const QString& sText) const
{
    return m_viSlots.empty() ? -1 : m_viSlots[slotOf(sText)];
}

std::size_t MatrixTextTable::slotOf(const QString& sText) const
{
    const std::size_t nMask = m_viSlots.size() - 1;
    std::size_t n = qHash(sText) & nMask;
    while (m_viSlots[n] >= 0 && m_vTexts[static_cast<std::size_t>(m_viSlots[n])] != sText)
        n = (n + 1) & nMask;
    return n;
}

void MatrixTextTable::rehash(std::size_t nSlots)
{
    m_viSlots.assign(nSlots, -1);
    for (std::size_t i = 0; i < m_vTexts.size(); ++i) {
        std::size_t n = qHash(m_vTexts[i]) & (nSlots - 1);
        while (m_viSlots[n] >= 0)
            n = (n + 1) & (nSlots - 1);
        m_viSlots[n] = static_cast<std::int32_t>(i);
    }
}

std::size_t MatrixTextTable::memoryUsage() const
{
    std::size_t nBytes = m_vTexts.capacity() * sizeof(QString) + m_viSlots.capacity() * sizeof(std::int32_t);
    for (const QString& sText : m_vTexts)
        nBytes += static_cast<std::size_t>(sText.capacity()) * sizeof(QChar) + 16;
    return nBytes;
}

} // namespace gkBase
