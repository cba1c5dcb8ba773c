// Which markers a depth plot finds in the data sets of a project, and which flags hide them.

#include "TestDataSets.h"

#include <gkBase/DepthMarkers.h>
#include <gkBase/MatrixData.h>
#include <gkBase/UnitManager.h>

#include <QTest>

using namespace gkBase;
using gkTest::addDataSet;
using gkTest::texts;

namespace {

MatrixData* attribute(const QString& sName, const std::vector<double>& vdValues, const char* pCategory = "depth",
                      const char* pUnit = "m")
{
    return gkTest::attribute(sName, vdValues, pCategory, pUnit);
}

/// A depth plot of this data set, whose depths are in metres, looks for markers.
struct Well
{
    Well()
    {
        addDataSet(m_root, QStringLiteral("Well"),
                   {m_poDepth, gkTest::attribute(QStringLiteral("GR"), std::vector<double>{40.0, 60.0})});
    }

    MatrixData m_root{QStringLiteral("root")};
    MatrixData* m_poDepth = attribute(QStringLiteral("Depth"), {1000.0, 1100.0});
};

QStringList markerTexts(const DepthMarkers& markers)
{
    QStringList lTexts;
    for (const DepthMarker& marker : markers.m_vLines)
        lTexts << QStringLiteral("%1 %2 %3").arg(marker.m_eKind).arg(marker.m_dDepth).arg(marker.m_sName);
    return lTexts;
}

} // namespace

class TestDepthMarkers : public QObject
{
    Q_OBJECT
private slots:
    void markersOfTheData();
    void visibilityFlagsRule();
    void decimatedDipsAreTadpoles();
};

void TestDepthMarkers::markersOfTheData()
{
    Well well;
    addDataSet(well.m_root, QStringLiteral("Picks"),
               {attribute(QStringLiteral("Depth"), {3400, 3300, 99999.0, 3350, 3360, 3370}, "depth", "ft"),
                texts(QStringLiteral("Top"), {"T1", "", "T3", "", "", ""}),
                texts(QStringLiteral("Fault"), {"", "F1", "", "", "", ""}),
                texts(QStringLiteral("Type"), {"", "Top", "", "Axial Plane", "bedding", "Horizon"}),
                texts(QStringLiteral("Name"), {"", "", "", "", "", "H1"})});
    const DepthMarkers markers = collectDepthMarkers(&well.m_root, well.m_poDepth, {});
    QCOMPARE(markerTexts(markers), (QStringList{"2 1005.84 F1", "3 1021.08 Axial Plane", "1 1027.18 H1",
                                                "0 1036.32 T1"})); // in metres, without the unknown and the depthless
    DepthMarkerSwitches switches;
    switches.m_bTops = false;
    switches.m_bScat = false;
    QCOMPARE(markerTexts(collectDepthMarkers(&well.m_root, well.m_poDepth, switches)), (QStringList{"2 1005.84 F1"}));
}

void TestDepthMarkers::visibilityFlagsRule()
{
    Well well;
    auto* poVisible = new MatrixData(QStringLiteral("$V"), 0, 1, QMetaType::Bool);
    MatrixColumn flags(QMetaType::Bool);
    for (const QVariant& qFlag : {QVariant(true), QVariant(false), QVariant()})
        flags.appendValue(qFlag);
    poVisible->setColumn(0, flags);
    addDataSet(well.m_root, QStringLiteral("Picks"),
               {attribute(QStringLiteral("Depth"), {1001, 1002, 1003}), texts(QStringLiteral("Top"), {"a", "b", "c"}),
                poVisible});
    const auto shown = [&well] { return markerTexts(collectDepthMarkers(&well.m_root, well.m_poDepth, {})); };
    QCOMPARE(shown(), (QStringList{"0 1001 a", "0 1003 c"}));
    poVisible->setDefaultValue1(markerDefaultOfRows());
    QCOMPARE(shown(), (QStringList{"0 1001 a"}));
    addDataSet(well.m_root, QStringLiteral("Well Tops"),
               {attribute(QStringLiteral("Depth"), {1004}), texts(QStringLiteral("Top"), {"d"})});
    QCOMPARE(shown(), (QStringList{"0 1001 a", "0 1004 d"})); // without cells nothing was switched
    poVisible->setDefaultValue1(markerDefaultOfAll(false));
    QCOMPARE(shown(), QStringList());
    poVisible->setDefaultValue1(markerDefaultOfAll(true));
    QCOMPARE(shown().size(), 4);
}

void TestDepthMarkers::decimatedDipsAreTadpoles()
{
    Well well;
    addDataSet(well.m_root, QStringLiteral("Data Decimation"),
               {gkTest::attribute(QStringLiteral("Decimated:Depth"), {1010, 1020, 1030}),
                attribute(QStringLiteral("Decimated:dip"), {30, 99999.0, 50}, "orientation", "deg"),
                attribute(QStringLiteral("Decimated:azimuth"), {100, 200, 300}, "orientation", "deg")});
    const DepthMarkers markers = collectDepthMarkers(&well.m_root, well.m_poDepth, {});
    QCOMPARE(markers.m_vTadpoles, (std::vector<DepthTadpole>{{1010, 30, 100}, {1030, 50, 300}}));
}

QTEST_APPLESS_MAIN(TestDepthMarkers)
#include "tst_depthmarkers.moc"
