#pragma once

#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/UnitManager.h>

#include <QStringList>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <utility>
#include <vector>

/// Small data sets for tests of charts. The caller, or the tree that it is put into, owns what is returned.
namespace gkTest {

inline gkBase::MatrixData* attribute(const QString& sName, gkBase::MatrixColumn column)
{
    auto* poNode = new gkBase::MatrixData(sName, 0, 1, column.type());
    poNode->setColumn(0, std::move(column));
    return poNode;
}

inline gkBase::MatrixData* attribute(const QString& sName, const std::vector<double>& vdValues)
{
    return attribute(sName, gkBase::MatrixColumn::fromDoubles(vdValues));
}

/// Numbers in a unit.
inline gkBase::MatrixData* attribute(const QString& sName, const std::vector<double>& vdValues, const char* pCategory,
                                     const char* pUnit)
{
    gkBase::MatrixData* poNode = attribute(sName, vdValues);
    poNode->setUnitManager(boost::shared_ptr<gkBase::UnitManager>(
        new gkBase::UnitManager(QLatin1String(pCategory), QLatin1String(pUnit))));
    return poNode;
}

/// Cells from texts; an empty one is a missing cell.
inline gkBase::MatrixData* attribute(const QString& sName, QMetaType::Type eType, const QStringList& lCells)
{
    gkBase::MatrixColumn column(eType);
    for (const QString& sCell : lCells)
        column.appendValue(sCell.isEmpty() ? QVariant() : QVariant(sCell));
    return attribute(sName, std::move(column));
}

inline gkBase::MatrixData* texts(const QString& sName, const QStringList& lTexts)
{
    return attribute(sName, QMetaType::QString, lTexts);
}

inline gkBase::MatrixData* addDataSet(gkBase::MatrixData& root, const QString& sName,
                                      const std::vector<gkBase::MatrixData*>& vpAttributes)
{
    auto* poSet = new gkBase::MatrixData(sName);
    root.appendChild(poSet, false);
    for (gkBase::MatrixData* poAttribute : vpAttributes)
        poSet->appendChild(poAttribute, true);
    return poSet;
}

/// A root with one data set "Well" that holds the attributes.
inline std::unique_ptr<gkBase::MatrixData> rootOf(const std::vector<gkBase::MatrixData*>& vpAttributes)
{
    auto poRoot = std::make_unique<gkBase::MatrixData>(QStringLiteral("root"));
    addDataSet(*poRoot, QStringLiteral("Well"), vpAttributes);
    return poRoot;
}

} // namespace gkTest
