#include "MarkerColumns.h"

#include "DepthLineField.h"
#include "MatrixData.h"
#include "WellDataSets.h"

#include <algorithm>
#include <array>

namespace gkBase {

namespace {

/// The attributes that name markers, by kind.
struct NamingAttribute
{
    DepthMarker::Kind m_eKind;
    QString m_sName;
};

const std::array<NamingAttribute, 3>& namingAttributes()
{
    static const std::array<NamingAttribute, 3> attributes{{{DepthMarker::Top, QStringLiteral("Top")},
                                                            {DepthMarker::Horizon, QStringLiteral("Horizon")},
                                                            {DepthMarker::Fault, QStringLiteral("Fault")}}};
    return attributes;
}

/// The kind that a text of "Type" names, −1 for none.
int kindOf(const QString& sType)
{
    for (const NamingAttribute& attribute : namingAttributes()) {
        if (sType.compare(attribute.m_sName, Qt::CaseInsensitive) == 0)
            return attribute.m_eKind;
    }
    const bool bScat = sType.startsWith(QLatin1String("SCAT"), Qt::CaseInsensitive) ||
                       (!sType.isEmpty() && DepthLineField::isStructuralPlane(DepthLineField::type(sType)));
    return bScat ? static_cast<int>(DepthMarker::Scat) : -1;
}

const MatrixColumn* textColumn(const MatrixData& dataSet, const QString& sName)
{
    const MatrixData* poNode = attributeNamed(dataSet, sName);
    return poNode && poNode->column().type() == QMetaType::QString ? &poNode->column() : nullptr;
}

} // namespace

MarkerColumns::MarkerColumns(const MatrixData& dataSet)
    : m_pType(textColumn(dataSet, QStringLiteral("Type")))
    , m_pName(textColumn(dataSet, QStringLiteral("Name")))
{
    for (const NamingAttribute& attribute : namingAttributes()) {
        if (const MatrixColumn* pColumn = textColumn(dataSet, attribute.m_sName))
            m_vNaming.emplace_back(attribute.m_eKind, pColumn);
    }
    if (!m_pType)
        return;
    for (const QString& sType : m_pType->texts())
        m_viKinds.push_back(kindOf(sType));
}

int MarkerColumns::recordCount() const
{
    int iRecords = m_pType ? m_pType->size() : 0;
    for (const auto& [eKind, pColumn] : m_vNaming)
        iRecords = std::max(iRecords, pColumn->size());
    return iRecords;
}

bool MarkerColumns::hasMarker(int iRecord, DepthMarker::Kind eKind) const
{
    bool bFound = false;
    forEachMarker(iRecord, [&](DepthMarker::Kind eOfRecord, const QString&) { bFound |= eOfRecord == eKind; });
    return bFound;
}

int MarkerColumns::kindOfType(int iRecord) const
{
    if (!m_pType || m_pType->isMissing(iRecord))
        return g_iNoKind;
    return m_viKinds[static_cast<std::size_t>(m_pType->textCodes()[static_cast<std::size_t>(iRecord)])];
}

QString MarkerColumns::nameOrType(int iRecord) const
{
    const bool bHasName = m_pName && !m_pName->isMissing(iRecord) && !m_pName->text(iRecord).isEmpty();
    // The name that a structural plane has before anybody gives it one says less than what it is.
    return bHasName && m_pName->text(iRecord) != QLatin1String("Dummy") ? m_pName->text(iRecord)
                                                                        : m_pType->text(iRecord);
}

} // namespace gkBase
