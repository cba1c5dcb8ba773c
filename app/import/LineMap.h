#pragma once

#include <QtGlobal>

#include <vector>

namespace gkHost {

/// The line of the file that each record came from. Only the jumps are kept, so that a regular file costs nothing.
class LineMap
{
public:
    /// Rows in rising order.
    void append(int iRow, qint64 iLine);
    /// 0 when nothing is known about the row.
    qint64 line(int iRow) const;
    bool isEmpty() const { return m_vJumps.empty(); }

private:
    struct Jump
    {
        int m_iRow;
        qint64 m_iLine;
    };
    std::vector<Jump> m_vJumps;
};

} // namespace gkHost
