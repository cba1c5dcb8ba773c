#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace gkBase {

/// A number that tells whether data are those of last time, for keeping what was worked out from them. Reads four
/// words at a time, so that a million doubles take about a millisecond. Not for data that somebody could forge.
class Fingerprint
{
public:
    void add(std::uint64_t iWord) { m_lanes[0] = mixed(m_lanes[0], iWord); }

    /// Their bytes.
    template <typename T>
    void add(std::span<const T> values)
    {
        const auto* pBytes = reinterpret_cast<const char*>(values.data());
        const std::size_t iBytes = values.size_bytes();
        add(std::uint64_t{iBytes});
        std::array<std::uint64_t, 4> block{};
        std::size_t i = 0;
        for (; i + sizeof(block) <= iBytes; i += sizeof(block)) {
            std::memcpy(block.data(), pBytes + i, sizeof(block));
            for (std::size_t k = 0; k < block.size(); ++k) {
                m_lanes[k] = mixed(m_lanes[k], block[k]);
            }
        }
        for (; i < iBytes; ++i) {
            add(std::uint64_t{static_cast<unsigned char>(pBytes[i])});
        }
    }

    std::uint64_t value() const
    {
        std::uint64_t iValue = 0;
        for (const std::uint64_t iLane : m_lanes) {
            iValue = mixed(iValue, iLane);
        }
        return iValue;
    }

private:
    static std::uint64_t mixed(std::uint64_t iState, std::uint64_t iWord)
    {
        // An odd factor with well spread bits; the turn brings the high bits down again.
        return std::rotl((iState ^ iWord) * 0x9e3779b97f4a7c15ULL, 29);
    }

    std::array<std::uint64_t, 4> m_lanes{1, 2, 3, 4};
};

} // namespace gkBase
