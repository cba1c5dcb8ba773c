#pragma once

#include "MatrixData.h"
#include "UnitManager.h"

#include <QColor>

#include <boost/make_shared.hpp>

#include <memory>

/// A small tree with one data set and one attribute of each type: X (length, m), N (int), T (text), B (bool), C
/// (colour), each of iRecords records; the value of record i follows from i.
struct AttributeTable
{
    explicit AttributeTable(int iRecords = 25)
        : m_poRoot(std::make_unique<gkBase::MatrixData>(QStringLiteral("Root")))
        , m_poDataSet(new gkBase::MatrixData(QStringLiteral("Wells")))
    {
        m_poRoot->appendChild(m_poDataSet, false);
        m_poX = append(QStringLiteral("X"), QMetaType::Double, iRecords, [](int i) { return 0.1234567890123 + i; });
        m_poX->setUnitManager(boost::make_shared<gkBase::UnitManager>(QStringLiteral("length"), QStringLiteral("m")));
        m_poN = append(QStringLiteral("N"), QMetaType::Int, iRecords, [](int i) { return 100 + i; });
        m_poT = append(QStringLiteral("T"), QMetaType::QString, iRecords, [](int i) { return QString::number(-i); });
        m_poB = append(QStringLiteral("B"), QMetaType::Bool, iRecords, [](int i) { return i % 2 == 0; });
        m_poC = append(QStringLiteral("C"), QMetaType::QColor, iRecords, [](int i) { return QColor(i, 0, 255); });
    }

    template <typename ValueOf>
    gkBase::MatrixData* append(const QString& sName, QMetaType::Type eType, int iRecords, ValueOf valueOf)
    {
        auto* poAttribute = new gkBase::MatrixData(sName, iRecords, 1, eType);
        m_poDataSet->appendChild(poAttribute, true);
        for (int i = 0; i < iRecords; ++i)
            poAttribute->setValue(i + 3, 0, QVariant(valueOf(i)));
        poAttribute->setSelected(true);
        return poAttribute;
    }

    QString undoName() const { return m_poRoot->undoText(); }

    std::unique_ptr<gkBase::MatrixData> m_poRoot;
    gkBase::MatrixData* m_poDataSet;
    gkBase::MatrixData* m_poX;
    gkBase::MatrixData* m_poN;
    gkBase::MatrixData* m_poT;
    gkBase::MatrixData* m_poB;
    gkBase::MatrixData* m_poC;
};
