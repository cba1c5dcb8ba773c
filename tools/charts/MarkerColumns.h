#pragma once

#include "DepthMarkers.h"
#include "MatrixColumn.h"
#include "gkBaseToolsExport.h"

#include <QString>

#include <utility>
#include <vector>

namespace gkBase {

class MatrixData;

/// The text attributes of a data set that make markers of its records, as collectDepthMarkers() says. Valid while the
/// data set's attributes and values stay as they are.
class GKBASETOOLS_EXPORT MarkerColumns
{
public:
    explicit MarkerColumns(const MatrixData& dataSet);

    bool isEmpty() const { return m_vNaming.empty() && !m_pType; }
    int recordCount() const;
    /// The text of "Type"; empty without one.
    QString type(int iRecord) const { return m_pType ? m_pType->text(iRecord) : QString(); }

    /// Calls fn(kind, name) for every marker of a record.
    template <typename Function>
    void forEachMarker(int iRecord, Function&& fn) const
    {
        bool bNamed = false;
        for (const auto& [eKind, pColumn] : m_vNaming) {
            if (pColumn->isMissing(iRecord) || pColumn->text(iRecord).isEmpty())
                continue;
            bNamed = true;
            fn(eKind, pColumn->text(iRecord));
        }
        if (const int iKind = bNamed ? g_iNoKind : kindOfType(iRecord); iKind != g_iNoKind)
            fn(static_cast<DepthMarker::Kind>(iKind), nameOrType(iRecord));
    }
    /// Whether one of the record's markers is of that kind.
    bool hasMarker(int iRecord, DepthMarker::Kind eKind) const;

private:
    static constexpr int g_iNoKind = -1;

    int kindOfType(int iRecord) const;
    QString nameOrType(int iRecord) const;

    const MatrixColumn* m_pType;
    const MatrixColumn* m_pName;
    std::vector<std::pair<DepthMarker::Kind, const MatrixColumn*>> m_vNaming;
    std::vector<int> m_viKinds; ///< by code of "Type"
};

} // namespace gkBase
