#pragma once

#include "TestDataSets.h"

#include <gkBase/DepthLineField.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QDepthTrackArea.h>
#include <gkBase/QDepthTrackPlot.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QScatDepthPlotWidget.h>
#include <gkBase/UnitManager.h>

#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>

#include <memory>
#include <vector>

namespace gkTest {

using gkBase::DepthLineField;
using gkBase::MatrixData;
using gkBase::QDepthTrackPlot;
using gkBase::QScatDepthPlotWidget;
using gkBase::UnitManager;

/// A fold whose axis plunges 10 towards 220, so that L is 10 in all records; T is 310.
struct FoldedWell
{
    FoldedWell()
    {
        m_poSet = addDataSet(
            *m_poRoot, QStringLiteral("Well"),
            {attribute(QStringLiteral("Depth"), {1000, 1100, 1200, 1300, 1400, 1500, 1600, 1700}, "depth", "m"),
             attribute(QStringLiteral("Dip"), {22.02, 31.12, 22.02, 10.00, 12.71, 34.88, 40.61, 36.78}, "orientation",
                       "deg"),
             attribute(QStringLiteral("Azimuth"), {155.85, 146.98, 155.85, 220.00, 258.56, 295.35, 298.13, 296.36},
                       "orientation", "deg")});
    }
    MatrixData& node(const char* pName) { return *m_poRoot->getNodeFromName(QLatin1String(pName)); }

    std::unique_ptr<MatrixData> m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    MatrixData* m_poSet;
};

/// The window at a size, laid out, with answers in place of its dialogs.
struct Panel : QScatDepthPlotWidget
{
    explicit Panel(FoldedWell& well)
    {
        resize(1000, 700);
        setDataRoot(well.m_poRoot.get());
        setDataSet(well.m_poSet);
        setDialogs({[this](QWidget*, const QString&, const QString& sText) {
                        m_lAsked << sText;
                        return m_eAnswer;
                    },
                    [this](QWidget*, const QString&, const QString& sText) { m_lWarnings << sText; },
                    [this](QWidget*, const QString&, const QString& sName) {
                        m_lProposed << sName;
                        return m_sFile;
                    },
                    [this](QWidget*, const QString&) { return m_lFiles; }});
        grab();
    }
    QDepthTrackPlot& plot(int i) { return *trackArea()->plot(i); }
    const DepthLineField& lines(int i) { return *trackArea()->model(i)->structuralTops(); }
    void choose(const char* pType) { findChild<QAbstractButton*>(QLatin1String(pType))->click(); }
    bool call(const char* pSlot) { return QMetaObject::invokeMethod(this, pSlot); }
    QPoint pixel(int iTrack, double dX, double dDepth)
    {
        QDepthTrackPlot& canvas = plot(iTrack);
        return (canvas.transformInPixelPoint({dX, dDepth}) - canvas.pixmapRect().topLeft()).toPoint();
    }
    void click(int iTrack, double dX, double dDepth, Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
    {
        QTest::mouseClick(&plot(iTrack), Qt::LeftButton, eModifiers, pixel(iTrack, dX, dDepth));
    }
    /// A rectangle around all x between two depths.
    void lasso(int iTrack, double dFrom, double dTo)
    {
        QDepthTrackPlot& canvas = plot(iTrack);
        const int iTop = pixel(iTrack, 0.0, dFrom).y();
        const int iBottom = pixel(iTrack, 0.0, dTo).y();
        const int iRight = canvas.width() - 2;
        QTest::mousePress(&canvas, Qt::LeftButton, {}, {1, iTop});
        for (const QPoint oCorner : {QPoint(iRight, iTop), QPoint(iRight, iBottom), QPoint(1, iBottom)})
            QTest::mouseMove(&canvas, oCorner);
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, {1, iBottom});
    }
    void saveTo(const QString& sFile)
    {
        m_sFile = sFile;
        call("slotSaveScenario");
    }

    QMessageBox::StandardButton m_eAnswer = QMessageBox::Cancel;
    QString m_sFile;
    QStringList m_lFiles;
    QStringList m_lAsked;
    QStringList m_lWarnings;
    QStringList m_lProposed;
};

/// The records of a signal dataPointsSelection().
inline std::vector<int> selected(const QList<QVariant>& lSignal)
{
    const bool* pbSelection = lSignal[0].value<bool*>();
    std::vector<int> viRecords;
    for (int i = 0; i < lSignal[1].toInt(); ++i) {
        if (pbSelection[i])
            viRecords.push_back(i);
    }
    return viRecords;
}

} // namespace gkTest
