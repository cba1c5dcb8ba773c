#include "SampleFiles.h"

#include "SampleRandom.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace gkSamples {

namespace {

constexpr double g_dPi = 3.14159265358979323846;

std::string fixed(double dValue, int iDecimals)
{
    char acText[64];
    std::snprintf(acText, sizeof(acText), "%.*f", iDecimals, dValue);
    return acText;
}

/// Rounded to a tenth; an azimuth of 359.96 becomes 0.0.
std::string azimuthText(double dAzimuth)
{
    const std::string sText = fixed(dAzimuth, 1);
    return sText == "360.0" ? "0.0" : sText;
}

/// The fold of the well: its record i is at 1200 + 1.25 i metres, give or take.
constexpr double g_dTop = 1200;
constexpr double g_dSpacing = 1.25;
constexpr double g_dWavelength = 130; // records

/// The bedding of the folded well at a record, turned out of the axis by dNoise radians.
Angles foldedBed(double dRecord, double dNoise)
{
    const Vector axis = lineVector({15, 300});
    const Vector across = lineVector({0, 30});
    const Vector upright = lineVector({75, 120});
    const double dTurn = (50 * std::sin(2 * g_dPi * dRecord / g_dWavelength) - 10) * g_dPi / 180;
    Vector pole{};
    for (std::size_t k = 0; k < 3; ++k) {
        pole[k] = std::cos(dTurn) * upright[k] + std::sin(dTurn) * across[k] + dNoise * axis[k];
    }
    return planeAngles(pole);
}

/// Bedding planes that all hold the axis 15/300; the limbs swing from one side to the other with depth.
std::string foldedWell()
{
    SampleRandom random(1);
    std::string sText = "depth [m],dip [deg],azimuth [deg],quality\n";
    for (int i = 0; i < 220; ++i) {
        const double dDepth = g_dTop + g_dSpacing * i + random.uniform(-0.3, 0.3);
        const Angles oPlane = foldedBed(i, random.normal(0, 0.02));
        sText += fixed(dDepth, 2) + ',' + fixed(oPlane.m_dAngle, 1) + ',' + azimuthText(oPlane.m_dAzimuth) + ',' +
                 std::to_string(random.whole(1, 4)) + '\n';
    }
    return sText;
}

/// A line of a scenario: its fields right-aligned in 30 characters, the line end being one of them.
std::string scenarioLine(const std::vector<std::string>& vsFields)
{
    constexpr std::size_t iWidth = 30;
    std::string sLine;
    for (const std::string& sField : vsFields) {
        sLine += std::string(sField.size() < iWidth ? iWidth - sField.size() : 0, ' ') + sField;
    }
    return sLine + std::string(iWidth - 1, ' ') + '\n';
}

std::string shortest(double dValue)
{
    char acText[64];
    std::snprintf(acText, sizeof(acText), "%g", dValue);
    return acText;
}

/// The planes of the folded well where its formula has them, and a bed that is followed as a horizon.
std::string foldedWellScenario()
{
    struct Line
    {
        double m_dRecord;
        int m_iType; // 0 crestal, 1 axial, 2 inflection plane, 3 horizon
        const char* m_pcName;
    };
    const double dCrest = g_dWavelength / (2 * g_dPi) * std::asin(0.2); // 50 sin = 10
    const double dHalf = g_dWavelength / 2;
    const Line vLines[] = {
        {dHalf / 2, 2, "Inflection_1"},   {dHalf - dCrest, 0, "Crest_1"},    {80, 3, "Marker_bed"},
        {1.5 * dHalf, 2, "Inflection_2"}, {2 * dHalf, 1, "Axial_plane"},     {2 * dHalf + dCrest, 0, "Crest_2"},
        {2.5 * dHalf, 2, "Inflection_3"}, {3 * dHalf - dCrest, 0, "Crest_3"}};
    const char* apcColors[] = {"#0000ff", "#00ff00", "#ff0000", "#d95f02"};
    std::string sText = "Brennick, Structural SCAT Interpretation 4DKastor2008 v1.0\n" +
                        scenarioLine({"X", "Depth", "Types", "Colors", "Dip", "Azimuth", "Names"});
    for (const Line& line : vLines) {
        const bool bHorizon = line.m_iType == 3;
        const Angles oPlane = bHorizon ? foldedBed(line.m_dRecord, 0) : Angles{-1, -1}; // -1: not oriented
        sText += scenarioLine({"0", shortest(g_dTop + g_dSpacing * line.m_dRecord), std::to_string(line.m_iType),
                               apcColors[line.m_iType], shortest(oPlane.m_dAngle), shortest(oPlane.m_dAzimuth),
                               line.m_pcName});
    }
    return sText;
}

std::string fractures()
{
    struct Set
    {
        const char* m_pcName;
        const char* m_pcColor;
        Angles m_oMean;
        double m_dKappa;
        int m_iCount;
    };
    const Set vSets[] = {{"joints east", "#d95f02", {72, 110}, 60, 60},
                         {"joints south-west", "#1b9e77", {55, 215}, 40, 45},
                         {"sheeting", "#7570b3", {15, 20}, 80, 35}};
    SampleRandom random(2);
    std::vector<std::pair<double, std::string>> vRows;
    for (const Set& set : vSets) {
        for (int i = 0; i < set.m_iCount; ++i) {
            const Angles oPlane = planeAngles(random.fisher(planePole(set.m_oMean), set.m_dKappa));
            const double dPosition = random.uniform(0, 120);
            vRows.emplace_back(dPosition, fixed(dPosition, 2) + ',' + fixed(oPlane.m_dAngle, 1) + ',' +
                                              azimuthText(oPlane.m_dAzimuth) + ',' + set.m_pcName + ',' +
                                              set.m_pcColor + '\n');
        }
    }
    std::sort(vRows.begin(), vRows.end());
    std::string sText = "position [m],dip [deg],dip azimuth [deg],set,colour\n";
    for (const auto& [dPosition, sRow] : vRows) {
        sText += sRow;
    }
    return sText;
}

std::string lineations()
{
    SampleRandom random(3);
    std::string sText = "plunge,trend\n";
    for (int i = 0; i < 80; ++i) {
        const Angles oLine = lineAngles(random.fisher(lineVector({28, 305}), 35));
        sText += fixed(oLine.m_dAngle, 1) + ',' + azimuthText(oLine.m_dAzimuth) + '\n';
    }
    return sText;
}

std::string column(const std::string& sNumber)
{
    return std::string(sNumber.size() < 10 ? 10 - sNumber.size() : 1, ' ') + sNumber;
}

std::string logs()
{
    std::string sText = "~Version\n"
                        " VERS.   2.0                 : CWLS log ASCII standard, version 2.0\n"
                        " WRAP.   NO                  : one line per depth step\n"
                        "~Well\n"
                        " STRT.M  1500.0              : first depth\n"
                        " STOP.M  1650.0              : last depth\n"
                        " STEP.M  0.5                 : step\n"
                        " NULL.   -999.25             : missing value\n"
                        " COMP.   Invented Wells      : company\n"
                        " WELL.   Sample 1            : well\n"
                        "~Curve\n"
                        " DEPT.M                      : depth\n"
                        " GR  .GAPI                   : gamma ray\n"
                        " RHOB.G/CM3                  : bulk density\n"
                        " NPHI.V/V                    : neutron porosity\n"
                        " DT  .US/FT                  : sonic transit time\n"
                        " RES .OHMM                   : resistivity\n"
                        "~Parameter\n"
                        " BS  .MM 216.0               : bit size\n"
                        "~A      DEPT        GR      RHOB      NPHI        DT       RES\n";
    SampleRandom random(4);
    double dShale = 0.5; // share of shale of the bed
    for (int i = 0; i <= 300; ++i) {
        if (i % 18 == 0) {
            dShale = random.uniform(0.05, 0.95);
        }
        const double dPorosity = 0.28 - 0.2 * dShale + random.normal(0, 0.01);
        const std::string vsValues[] = {fixed(20 + 110 * dShale + random.normal(0, 4), 2),
                                        fixed(2.66 - 1.66 * dPorosity + random.normal(0, 0.01), 3),
                                        fixed(dPorosity + 0.25 * dShale, 3),
                                        fixed(55 + 130 * dPorosity + random.normal(0, 1), 2),
                                        fixed(std::pow(10, 0.4 + 1.2 * (1 - dShale) + random.normal(0, 0.05)), 3)};
        sText += column(fixed(1500 + 0.5 * i, 2));
        for (int iCurve = 0; iCurve < 5; ++iCurve) {
            const bool bDensityGap = (iCurve == 1 || iCurve == 2) && i >= 90 && i < 110;
            const bool bSonicGap = iCurve == 3 && i < 24;
            sText += column(bDensityGap || bSonicGap ? "-999.25" : vsValues[iCurve]);
        }
        sText += '\n';
    }
    return sText;
}

std::string mixed()
{
    struct Rock
    {
        const char* m_pcName;
        const char* m_pcColor;
    };
    const Rock vRocks[] = {{"sandstone", "#e6c34a"}, {"shale", "#6b6b6b"}, {"\"limestone, oolitic\"", "#7fb8d9"}};
    SampleRandom random(5);
    std::string sText = "# Hand specimens, all of them invented\n"
                        "sample,depth,porosity,grain size,fossils,count,rock,colour\n"
                        "-,m,%,mm,-,-,-,-\n";
    const auto orEmpty = [&random](double dProbability, const std::string& sCell) {
        return random.chance(dProbability) ? std::string() : sCell;
    };
    for (int i = 1; i <= 60; ++i) {
        char acSample[16];
        std::snprintf(acSample, sizeof(acSample), "S-%03d", i);
        const Rock& rock = vRocks[random.whole(0, 2)];
        const double dDepth = 12.5 + 3.2 * i;
        const std::string sPorosity = fixed(random.uniform(2, 28), 1);
        const std::string sGrain = fixed(random.uniform(0.01, 1.2), 3);
        const bool bFossils = random.chance(0.4);
        const int iCount = bFossils ? random.whole(1, 40) : 0;
        sText += std::string(acSample) + ',' + fixed(dDepth, 1) + ',' + orEmpty(0.15, sPorosity) + ',' +
                 orEmpty(0.1, sGrain) + ',' + (bFossils ? "true" : "false") + ',' +
                 orEmpty(0.1, std::to_string(iCount)) + ',' + rock.m_pcName + ',' + orEmpty(0.1, rock.m_pcColor) + '\n';
    }
    return sText;
}

} // namespace

std::map<std::string, std::string> sampleFiles()
{
    return {{"folded_well.csv", foldedWell()},
            {"folded_well_scenario.txt", foldedWellScenario()},
            {"fractures.csv", fractures()},
            {"lineations.csv", lineations()},
            {"logs.las", logs()},
            {"mixed.csv", mixed()}};
}

} // namespace gkSamples
