#pragma once

#include <QString>

#include <memory>
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

    /// Keeps only the records of the data sets that pass. Numbers compare as numbers, colours as colours, text
    /// exactly. A condition on "DATA SET: NAME" asks that data set only; one on NAME keeps no record of a data set
    /// without such an attribute. False, with the reason and nothing changed, when no data set has the attribute.
    bool apply(const std::vector<std::unique_ptr<gkBase::MatrixData>>& vDataSets, QString& sError) const;

private:
    struct Condition
    {
        QString m_sName;
        QString m_sValue;
    };

    /// What --rows keeps of so many records.
    std::vector<bool> keptRows(int iRecords) const;
    /// Drops the records that the condition rejects; all of them without an attribute.
    static void narrow(std::vector<bool>& vbKeep, const gkBase::MatrixData* poAttribute, const Condition& condition);
    static void keepRecords(gkBase::MatrixData& dataSet, const std::vector<bool>& vbKeep);

    std::vector<std::pair<int, int>> m_vRanges; ///< first and last record, counted from 0
    bool m_bRows = false;
    std::vector<Condition> m_vConditions;
};

} // namespace gkHost
