#include "WoodcockRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"
#include "OrientationInput.h"

#include <gkBase/ChartExporter.h>
#include <gkBase/ClusterShape.h>
#include <gkBase/MissingValue.h>
#include <gkBase/OrientationStatistics.h>
#include <gkBase/PointStyle.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/QWoodcockHelpWidget.h>

#include <QPainter>

#include <algorithm>
#include <array>

namespace gkHost {

namespace {

/// Symbols that are told apart at once.
constexpr std::array<int, 6> g_aiStyles = {gkBase::Circle,  gkBase::Square,    gkBase::Triangle1,
                                           gkBase::Diamond, gkBase::Triangle2, gkBase::BigCross1};
constexpr double g_dSideOfPlainTexts = 600.0; ///< pixels; in larger pictures the names grow with the diagram

void addWoodcockOptions(QCommandLineParser& parser)
{
    addOrientationOptions(parser);
    parser.addOption(
        {QStringLiteral("color-by"), text("One point for each class of this attribute."), QStringLiteral("NAME")});
}

/// Angles of the records of a class.
struct Subset
{
    std::vector<double> m_vdAngles;
    std::vector<double> m_vdAzimuths;
};

gkBase::ClusterShape shapeOf(const OrientationInput& orientations, const Subset& subset, const QString& sName)
{
    const gkBase::OrientationSums oSums =
        gkBase::orientationSums(orientations.m_eType, subset.m_vdAngles, subset.m_vdAzimuths);
    gkBase::ClusterShape shape;
    shape.m_sName = sName;
    shape.m_iCount = oSums.m_iCount;
    shape.m_oParameters = gkBase::woodcockParameters(gkBase::principalAxes(oSums));
    return shape;
}

/// One shape per class that has records; those without a class are in none.
std::vector<gkBase::ClusterShape> shapesOfClasses(const OrientationInput& orientations,
                                                  gkBase::MatrixData& classAttribute)
{
    gkBase::QRelationshipItemModel model; // names its classes as charts do, in display units
    model.setColorAttribute(&classAttribute);
    const gkBase::RelationshipClasses& classes = model.colorClasses();
    std::vector<Subset> vSubsets(static_cast<std::size_t>(classes.highestId() + 1));
    const std::size_t iRecords = std::min(orientations.m_vdAngles.size(), orientations.m_vdAzimuths.size());
    for (std::size_t i = 0; i < iRecords; ++i) {
        Subset& subset = vSubsets[static_cast<std::size_t>(classes.id(static_cast<int>(i)))];
        subset.m_vdAngles.push_back(orientations.m_vdAngles[i]);
        subset.m_vdAzimuths.push_back(orientations.m_vdAzimuths[i]);
    }
    std::vector<gkBase::ClusterShape> vShapes;
    for (int iClass = 1; iClass <= classes.highestId(); ++iClass) {
        gkBase::ClusterShape shape =
            shapeOf(orientations, vSubsets[static_cast<std::size_t>(iClass)], model.getColorName(iClass));
        shape.m_oColor = classes.color(iClass);
        shape.m_iSymbol = g_aiStyles[vShapes.size() % g_aiStyles.size()];
        if (shape.m_iCount > 0) {
            vShapes.push_back(shape);
        }
    }
    return vShapes;
}

std::vector<gkBase::ClusterShape> shapesOf(const OrientationInput& orientations, gkBase::MatrixData* poClassAttribute)
{
    if (poClassAttribute) {
        return shapesOfClasses(orientations, *poClassAttribute);
    }
    gkBase::ClusterShape shape =
        shapeOf(orientations, {orientations.m_vdAngles, orientations.m_vdAzimuths}, text("All"));
    shape.m_oColor = Qt::darkBlue;
    return {shape};
}

/// Appends the shapes as points; returns a line for each that has no place in the diagram.
QString addShapes(gkBase::QWoodcockHelpWidget& diagram, const std::vector<gkBase::ClusterShape>& vShapes)
{
    QString sLeftOut;
    for (const gkBase::ClusterShape& shape : vShapes) {
        if (gkBase::shapeIsDefined(shape)) {
            diagram.addPoint(shape.m_oParameters.m_dLnS2S3, shape.m_oParameters.m_dLnS1S2, shape.m_iSymbol,
                             shape.m_oColor, shape.m_sName);
        } else {
            sLeftOut +=
                text("\"%1\" is not in the diagram. %2\n").arg(shape.m_sName, gkBase::shapeTexts(shape, 2).m_sReason);
        }
    }
    return sLeftOut;
}

/// The diagram in the middle of the picture, as large as it fits.
gkBase::ChartPicture pictureOf(gkBase::QWoodcockHelpWidget& diagram)
{
    gkBase::ChartPicture picture;
    picture.m_oBackground = diagram.backgroundColor();
    picture.m_sTitle = diagram.chartName();
    picture.m_fnRender = [&diagram](QPainter& painter, const QRectF& oTarget) {
        const QRect oArea = oTarget.toRect();
        const int iSide = std::min(oArea.width(), oArea.height());
        QRect oSquare(0, 0, iSide, iSide);
        oSquare.moveCenter(oArea.center());
        painter.fillRect(oTarget, diagram.backgroundColor());
        diagram.renderTo(painter, oSquare);
    };
    return picture;
}

std::optional<CommandResult> renderWoodcock(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError;
    const bool bBlack = blackBackground(input, oError);
    const OrientationInput orientations = loadedOrientations(input, oError);
    gkBase::MatrixData* poClasses =
        oError ? nullptr : classAttribute(input, QStringLiteral("color-by"), *orientations.m_poAngle, oError);
    if (oError)
        return oError;

    gkBase::QWoodcockHelpWidget diagram;
    diagram.setLabelColor(bBlack ? Qt::white : Qt::black);
    QFont font = diagram.font();
    font.setPointSizeF(font.pointSizeF() *
                       std::max(1.0, std::min(oSize.width(), oSize.height()) / g_dSideOfPlainTexts));
    diagram.setFont(font);
    const QString sLeftOut = addShapes(diagram, shapesOf(orientations, poClasses));
    QString sError;
    if (!gkBase::ChartExporter::write(sPath, oSize, pictureOf(diagram), &sError))
        return CommandResult::badInput(sError);
    return CommandResult::ok(sLeftOut);
}

} // namespace

ChartRenderer woodcockRenderer()
{
    return {QStringLiteral("woodcock"), addWoodcockOptions, renderWoodcock};
}

} // namespace gkHost
