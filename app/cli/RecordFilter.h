#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace gkBase {
class MatrixData;
}

namespace gkHost {

/// The records that a command works on: "--rows 1,4-9" (counted from 1, as the table shows them) and
/// "--where NAME=VALUE". Several conditions must all hold. Without any of them all records are kept.
class RecordFilter
{
public:
    /// False, with the reason, for text that is no list of rows.
    bool setRows(const QString& sRows, QString& sError);
    /// "NAME=VALUE"; an empty value asks for missing cells. False, with the reason, without a name.
    bool addCondition(const QString& sCondition, QString& sError);

    bool isEmpty() const { return !m_bRows && m_vConditions.empty(); }

    /// Keeps only the records of the data set that pass. Numbers compare as numbers, colours as colours, text
    /// exactly. False, with the reason, when a condition names no attribute of the data set.
    bool apply(gkBase::MatrixData& dataSet, QString& sError) const;

private:
    struct Condition
    {
        QString m_sName;
        QString m_sValue;
    };

    std::vector<std::pair<int, int>> m_vRanges; ///< first and last record, counted from 0
    bool m_bRows = false;
    std::vector<Condition> m_vConditions;
};

} // namespace gkHost
