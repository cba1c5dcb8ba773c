#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QString>

#include <span>
#include <vector>

namespace gkBase {

class MatrixData;

/// One bar of a bar chart: the records of one class.
struct BarClass
{
    int m_iId = 0; ///< as in MatrixData::createSymbolIDs(); 0: the records without a value
    QString m_sName;
    QColor m_oColor;
    int m_iCount = 0;
};

/// The records of one attribute sorted into classes and counted: what a bar chart shows.
///
/// Used in three steps, each of which keeps what the one before made: classify() finds the class of every record,
/// count() counts the records that take part, arrange() puts the classes that have records into an order.
class GKBASETOOLS_EXPORT BarDiagramClasses
{
public:
    enum Order
    {
        NameOrder = 0, ///< texts by the alphabet whatever their case, numbers in them by their value
        ValueOrder,    ///< numbers rising, texts by their characters, colours by red, green, blue
        CountOrder     ///< most records first
    };

    /// Classes with this many values at most are told apart when nobody asks for an interval.
    static constexpr int s_iMostDistinctValues = 50;
    /// Intervals are never smaller than this part of the range of the values.
    static constexpr int s_iMostIntervals = 500;

    /// Distinct values are classes; a number dInterval above 0 (model units) makes classes of that width from whole
    /// multiples of it, closed on the left, for attributes of numbers that are no flags. Null empties everything.
    /// Costs nothing, and returns false, when attribute, values, unit and interval are those of the last call. The
    /// attribute is not kept.
    bool classify(const MatrixData* poAttribute, double dInterval);
    /// Counts the given records, an empty list means all; numbers out of range are skipped.
    void count(const std::vector<int>& viRecords);
    /// Fills bars(). The class of missing values stands last in every order.
    void arrange(Order eOrder, bool bMissingValues);

    /// Classes with at least one record, in order.
    const std::vector<BarClass>& bars() const { return m_vBars; }
    int barCount() const { return static_cast<int>(m_vBars.size()); }
    /// Records in all bars; what 100 per cent are.
    int total() const { return m_iTotal; }
    /// Counted records without a value, shown as a bar or not.
    int missingCount() const { return m_vClasses.empty() ? 0 : m_vClasses.front().m_iCount; }
    /// Records of the tallest bar.
    int maximumCount() const { return m_iMaximum; }
    /// Per cent of total(); 0 out of range.
    double share(int iBar) const;
    /// Counted records of the classes, rising.
    std::vector<int> recordsOf(std::span<const int> viIds) const;

    /// The interval that suits an attribute, 0 where its distinct values are better classes: texts, colours, flags and
    /// numbers of which few differ. Linear in the number of records.
    static double suggestedInterval(const MatrixData& attribute);
    /// False for attributes that cannot be cut into intervals.
    static bool takesInterval(const MatrixData& attribute);

private:
    /// What classify() depends on.
    struct Source
    {
        int m_iGlobalID = -1;
        quint64 m_iRevision = 0;
        double m_dInterval = 0.0;
        QString m_sUnit;
        bool operator==(const Source&) const = default;
    };

    void classifyIntervals(const MatrixData& attribute, double dInterval);
    void classifyValues(const MatrixData& attribute);
    template <typename Function>
    void forEachCounted(Function&& fn) const;

    Source m_oSource;
    std::vector<int> m_viIds;         ///< class of each record
    std::vector<BarClass> m_vClasses; ///< index = id
    std::vector<int> m_viRecords;     ///< empty: all
    std::vector<BarClass> m_vBars;
    bool m_bTexts = false;
    int m_iTotal = 0;
    int m_iMaximum = 0;
};

} // namespace gkBase
