// The dipmeter window: directions, apparent dips, lines on four tracks, selection, scenarios, settings.

#include "TemporarySettings.h"
#include "TestDataSets.h"

#include <gkBase/DepthLineField.h>
#include <gkBase/MatrixData.h>
#include <gkBase/MissingValue.h>
#include <gkBase/QDepthTrackArea.h>
#include <gkBase/QDepthTrackPlot.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QScatDepthPlotWidget.h>
#include <gkBase/ScatScenarios.h>
#include <gkBase/UnitManager.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoGroup>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace gkBase;

namespace {

constexpr double g_dNone = g_dMissingValue;

/// A fold whose axis plunges 10 towards 220, so that L is 10 in all records; T is 310.
struct FoldedWell
{
    FoldedWell()
    {
        const auto attribute = [](const char* pName, const char* pCategory, const char* pUnit,
                                  const std::vector<double>& vdValues) {
            MatrixData* poNode = gkTest::attribute(QLatin1String(pName), vdValues);
            poNode->setUnitManager(
                boost::shared_ptr<UnitManager>(new UnitManager(QLatin1String(pCategory), QLatin1String(pUnit))));
            return poNode;
        };
        m_poSet = gkTest::addDataSet(
            *m_poRoot, QStringLiteral("Well"),
            {attribute("Depth", "depth", "m", {1000, 1100, 1200, 1300, 1400, 1500, 1600, 1700}),
             attribute("Dip", "orientation", "deg", {22.02, 31.12, 22.02, 10.00, 12.71, 34.88, 40.61, 36.78}),
             attribute("Azimuth", "orientation", "deg",
                       {155.85, 146.98, 155.85, 220.00, 258.56, 295.35, 298.13, 296.36})});
    }
    MatrixData& node(const char* pName) { return *m_poRoot->getNodeFromName(QLatin1String(pName)); }

    std::unique_ptr<MatrixData> m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    MatrixData* m_poSet;
};

constexpr double g_adTransverse[] = {-20, -30, -20, 0, 8, 34, 40, 36};

/// The window at a size, laid out.
struct Panel : QScatDepthPlotWidget
{
    explicit Panel(FoldedWell& well)
    {
        resize(1000, 700);
        setDataRoot(well.m_poRoot.get());
        setDataSet(well.m_poSet);
        grab();
    }
};

} // namespace

class TestScatDepthPlot : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { gkTest::useTemporarySettings(m_folder.path(), QStringLiteral("tst_scatdepthplot")); }
    void init() { QSettings().clear(); }
    void foldGivesItsDirections();

private:
    QTemporaryDir m_folder;
};

void TestScatDepthPlot::foldGivesItsDirections()
{
    FoldedWell well;
    const Panel panel(well);
    QVERIFY(std::abs(panel.transverseDirection() - 310.0) < 0.1);
    for (int i = 0; i < 8; ++i) {
        QVERIFY(std::abs(panel.transverseDip()->recordNumber(i) - g_adTransverse[i]) < 0.1);
        QVERIFY(std::abs(std::abs(panel.longitudinalDip()->recordNumber(i)) - 10.0) < 0.1);
    }
}

QTEST_MAIN(TestScatDepthPlot)
#include "tst_scatdepthplot.moc"
