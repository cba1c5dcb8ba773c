#pragma once

#include "MissingValue.h"

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// The numbers of a column, all of them or those of a list of records; holds nothing itself, so both spans must
/// outlive it. An empty list means all records. Record numbers out of range are skipped.
class RecordValues
{
public:
    RecordValues(std::span<const double> vdValues, std::span<const int> viRecords = {})
        : m_vdValues(vdValues)
        , m_viRecords(viRecords)
    {
    }

    RecordValues(const std::vector<double>& vdValues, std::span<const int> viRecords = {})
        : RecordValues(std::span<const double>(vdValues), viRecords)
    {
    }

    bool hasRecordList() const { return !m_viRecords.empty(); }
    std::span<const double> column() const { return m_vdValues; }
    std::size_t columnSize() const { return m_vdValues.size(); }
    /// Values that are visited at most: the length of the list, or of the column.
    std::size_t size() const { return hasRecordList() ? m_viRecords.size() : m_vdValues.size(); }

    /// Calls fn(record, value) for every value that is not missing.
    template <typename Function>
    void forEachRecord(Function&& fn) const
    {
        if (!hasRecordList()) {
            for (std::size_t i = 0; i < m_vdValues.size(); ++i) {
                if (!isMissing(m_vdValues[i])) {
                    fn(i, m_vdValues[i]);
                }
            }
            return;
        }
        for (const int iRecord : m_viRecords) {
            const auto i = static_cast<std::size_t>(iRecord);
            if (iRecord >= 0 && i < m_vdValues.size() && !isMissing(m_vdValues[i])) {
                fn(i, m_vdValues[i]);
            }
        }
    }

    /// Calls fn(value) for every value that is not missing.
    template <typename Function>
    void forEach(Function&& fn) const
    {
        forEachRecord([&fn](std::size_t, double dValue) { fn(dValue); });
    }

private:
    std::span<const double> m_vdValues;
    std::span<const int> m_viRecords;
};

} // namespace gkBase
