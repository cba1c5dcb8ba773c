// The panel of the tangent diagram on the planes of a cylindrical fold.

#include "StereoRecords.h"
#include "TemporarySettings.h"

#include <gkBase/QDoubleSpinBoxWithSlider.h>
#include <gkBase/QTangentChartWidget.h>
#include <gkBase/QTangentPlotWidget.h>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace gkBase;

namespace {

constexpr double g_dRadians = std::numbers::pi / 180.0;

/// Planes that contain the axis 20/045, and one beyond the dips of the fit.
std::unique_ptr<MatrixData> newRoot()
{
    std::vector<double> vdDips;
    std::vector<double> vdAzimuths;
    for (double dOff = -70.0; dOff <= 70.0; dOff += 10.0) {
        vdDips.push_back(std::atan(std::tan(20.0 * g_dRadians) / std::cos(dOff * g_dRadians)) / g_dRadians);
        vdAzimuths.push_back(std::fmod(405.0 + dOff, 360.0));
    }
    vdDips.push_back(88.0);
    vdAzimuths.push_back(120.0);
    return gkTest::rootOf({gkTest::attribute(QStringLiteral("Dip"), vdDips),
                           gkTest::attribute(QStringLiteral("Dip Azimuth"), vdAzimuths)});
}

struct Fixture
{
    Fixture()
    {
        m_panel.resize(1000, 700);
        m_panel.setDataRoot(m_poRoot.get());
        m_panel.setAttributes(m_poRoot->child(0)->child(0), m_poRoot->child(0)->child(1), false);
        m_panel.updateTangentChart();
        m_panel.show();
        m_panel.tangentArea()->redraw();
    }
    template <typename Control>
    Control* control(const char* pName) const
    {
        return m_panel.findChild<Control*>(QLatin1String(pName));
    }
    QString text(const char* pName) const { return control<QLabel>(pName)->text(); }

    std::unique_ptr<MatrixData> m_poRoot = newRoot();
    QTangentChartWidget m_panel;
};

} // namespace

class TestTangentChart : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { gkTest::useTemporarySettings(m_oFolder.path(), QStringLiteral("tangentchart")); }
    void fitIsTheAxisOfTheFold();
    void whatHasNoFitSaysWhy();
    void boxesAndMouseMoveOneAxis();
    void maximumAngleIsKept();
    void cursorSwapsPoles();

private:
    QTemporaryDir m_oFolder;
};

void TestTangentChart::fitIsTheAxisOfTheFold()
{
    Fixture f;
    QCOMPARE(f.text("m_pqFittedAxisLabel"), QStringLiteral("20.0/045.0"));
    QCOMPARE(f.text("m_pqTransverseLabel"), QStringLiteral("135.0"));
    QCOMPARE(f.text("m_pqFittedPlanesLabel"), QStringLiteral("15"));
    QVERIFY(f.text("m_pqStatisticsTLabel") != QStringLiteral("---"));
    QVERIFY(!f.control<QCheckBox>("m_pqShowFoldAxisCheckBox")->isChecked());
    f.control<QPushButton>("m_pqFitAxisBtn")->click();
    QVERIFY(f.m_panel.tangentArea()->foldAxisIsShown());
    QVERIFY(qAbs(f.m_panel.tangentArea()->foldAxis().x() - 20.0) < 1e-9);
    QVERIFY(qAbs(f.control<QDoubleSpinBoxWithSlider>("m_pqFoldAxisAzimuthSpinBox")->getValue() - 45.0) < 1e-9);
    QVERIFY(f.control<QCheckBox>("m_pqShowFoldAxisCheckBox")->isChecked());
}

void TestTangentChart::whatHasNoFitSaysWhy()
{
    Fixture f;
    f.m_panel.setSelectedRows({3});
    QCOMPARE(f.text("m_pqFittedAxisLabel"), QStringLiteral("---"));
    QVERIFY(f.control<QLabel>("m_pqFittedAxisLabel")->toolTip().contains(QStringLiteral("too few")));
    QVERIFY(!f.control<QPushButton>("m_pqFitAxisBtn")->isEnabled());
    f.m_panel.setSelectedRows({});
    QCOMPARE(f.text("m_pqFittedAxisLabel"), QStringLiteral("20.0/045.0"));
    f.m_panel.setAttributes(f.m_panel.nodeAngle(), f.m_panel.nodeAzimuth(), true);
    QVERIFY(f.control<QLabel>("m_pqTransverseLabel")->toolTip().contains(QStringLiteral("lines")));
    const QPointF oBefore = f.m_panel.tangentArea()->foldAxis();
    f.m_panel.setFoldAxisToFit();
    QCOMPARE(f.m_panel.tangentArea()->foldAxis(), oBefore);
}

void TestTangentChart::boxesAndMouseMoveOneAxis()
{
    Fixture f;
    QTangentPlotWidget& diagram = *f.m_panel.tangentArea();
    f.control<QCheckBox>("m_pqShowFoldAxisCheckBox")->click();
    auto* pqPlunge = f.control<QDoubleSpinBoxWithSlider>("m_pqFoldAxisPlungeSpinBox");
    auto* pqAzimuth = f.control<QDoubleSpinBoxWithSlider>("m_pqFoldAxisAzimuthSpinBox");
    pqPlunge->setValue(30.0);
    pqAzimuth->setValue(80.0);
    QCOMPARE(diagram.foldAxis(), QPointF(30.0, 80.0));
    const QPointF oFrom = diagram.transformInPixelPoint({30.0, 80.0});
    const QPointF oTo = diagram.transformInPixelPoint({40.0, 300.0});
    gkTest::dragMouse(diagram, {oFrom, oTo});
    QVERIFY(qAbs(pqPlunge->getValue() - 40.0) < 0.1 && qAbs(pqAzimuth->getValue() - 300.0) < 0.1);
    QCOMPARE(diagram.foldAxis(), QPointF(pqPlunge->getValue(), pqAzimuth->getValue()));
}

void TestTangentChart::maximumAngleIsKept()
{
    Fixture f;
    QCOMPARE(f.m_panel.tangentArea()->maximumAngle(), 60.0);
    f.control<QDoubleSpinBoxWithSlider>("m_pqMaximumAngleSpinBox")->setValue(75.0);
    QCOMPARE(f.m_panel.tangentArea()->maximumAngle(), 75.0);
    f.m_panel.writeSettings(QStringLiteral("tangent/"));
    QTangentChartWidget other;
    other.readSettings(QStringLiteral("tangent/"));
    QCOMPARE(other.tangentArea()->maximumAngle(), 75.0);
    QCOMPARE(other.findChild<QDoubleSpinBoxWithSlider*>(QStringLiteral("m_pqMaximumAngleSpinBox"))->getValue(), 75.0);
    QVERIFY(other.settings().m_oNet.m_bCoarseNet);
}

void TestTangentChart::cursorSwapsPoles()
{
    Fixture f;
    QTangentPlotWidget& diagram = *f.m_panel.tangentArea();
    const auto textAt = [&](const QPointF& oPixel) {
        gkTest::sendMouse(diagram, QEvent::MouseMove, oPixel, Qt::NoModifier, Qt::NoButton);
        for (const QLabel* pqLabel : f.m_panel.findChildren<QLabel*>())
            if (pqLabel->text().startsWith(QStringLiteral("Line: ")))
                return pqLabel->text();
        return QString();
    };
    // To whole pixels the angle is good to a fifth of a degree.
    const QPointF oPixel = diagram.pointAt(90.0, diagram.tangentRadius(30.0));
    QVERIFY2(textAt(oPixel).contains(QStringLiteral("30.0/090.0")), qPrintable(textAt(oPixel)));
    StereoChartSettings settings = f.m_panel.settings();
    settings.m_oNet.m_iProjectionTarget = 0;
    f.m_panel.setSettings(settings);
    QVERIFY2(textAt(oPixel).contains(QStringLiteral("60.0/270.0")), qPrintable(textAt(oPixel)));
    QVERIFY(textAt({2.0, 2.0}).contains(QStringLiteral("---")));
}

QTEST_MAIN(TestTangentChart)
#include "tst_tangentchart.moc"
