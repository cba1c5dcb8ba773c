#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QCoreApplication>
#include <QPointF>
#include <QString>

#include <vector>

namespace gkBase {

/// A named list of horizontal lines at depths: interval boundaries, structural planes, horizons, faults and average
/// orientations. The vectors are parallel, one entry per line, in the order of insertion; depths and x are in model
/// units, orientations are (dip, dip azimuth) in degrees with (−1, −1) for one that is not set.
class GKBASETOOLS_EXPORT DepthLineField
{
    Q_DECLARE_TR_FUNCTIONS(gkBase::DepthLineField)

public:
    /// What a line stands for. 0 to 4 are kept in scenario files.
    enum DataType
    {
        CrestalPlane = 0,
        AxialPlane = 1,
        InflectionPlane = 2,
        Horizon = 3,
        Fault = 4,
        IntervalBoundary = 5,
        AverageOrientation = 6
    };

    /// Which lines bound the coloured domains between them.
    enum DomainType
    {
        NoDomains = 0,
        StructuralPlaneDomains = 1,
        HorizonDomains = 2,
        AllLineDomains = 3
    };

    /// One line with everything that is kept of it.
    struct Line
    {
        double m_dDepth = 0.0; ///< model units
        double m_dX = 0.0;
        QString m_sName;
        QColor m_oColor;
        DataType m_eType = Horizon;
        QPointF m_oOrientation{-1.0, -1.0}; ///< (dip, dip azimuth) in degrees, (−1, −1): not set
        int m_iOriginalRow = -1;
        bool m_bDepthChanged = false;
        bool m_bSelected = false;

        bool operator==(const Line&) const = default;
    };

    explicit DepthLineField(const QString& sName = QString());
    virtual ~DepthLineField() = default;

    /// The type's name, the same in every language ("Crestal Plane", "Horizon", …); empty for a number that is none.
    static QString type(DataType eType);
    /// The type of that name in any case; IntervalBoundary for a name that is none.
    static DataType type(const QString& sType);
    static bool isStructuralPlane(DataType eType) { return eType <= InflectionPlane; }

    QString name() const { return m_sName; }
    void setName(const QString& sName);
    /// True when a line, the name of a line or an orientation changed since setModified(false).
    bool modified() const { return m_bModified; }
    void setModified(bool bModified) { m_bModified = bModified; }

    int count() const { return static_cast<int>(m_vdDepths.size()); }
    const std::vector<double>& lineDepths() const { return m_vdDepths; }
    const std::vector<double>& linesX() const { return m_vdX; }
    const std::vector<QString>& lineNames() const { return m_vsNames; }
    const std::vector<QColor>& lineColors() const { return m_voColors; }
    const std::vector<DataType>& lineTypes() const { return m_veTypes; }
    const std::vector<QPointF>& lineOrientations() const { return m_voOrientations; }
    /// The row of a marker table that a line came from, −1 for none.
    const std::vector<int>& originalRowPos() const { return m_viOriginalRows; }
    /// True for a line whose depth changed since it was inserted.
    const std::vector<bool>& originalDepthChanged() const { return m_vbDepthChanged; }
    /// The line of that number; a default one for a number that is none.
    Line line(int iLine) const;
    /// All lines in the order of insertion, to be kept and put back.
    std::vector<Line> lines() const;
    /// Exactly these lines.
    void setLines(const std::vector<Line>& vLines);
    /// Line numbers in the order of their depths; equal depths keep the order of insertion.
    std::vector<int> linesByDepth() const;
    /// The depths of the lines of a type, rising, each once.
    std::vector<double> sortedDepths(DataType eType) const;

    /// Adds a line and returns its number. −1, and nothing is added, for a depth that is missing, or when a line of
    /// the same type lies nearer than dTolerance (0: never). An x or orientation that is not finite is 0 or not set.
    int insertHorizontalLine(const double& dDepth, const double& dX, const QString& sName, const QColor& oColor,
                             DataType eType, const QPointF& oOrientation = QPointF(-1.0, -1.0), int iOriginalRow = -1,
                             const double& dTolerance = 0.0);
    /// The lines whose depth is within dTolerance of the position's y, nearest first.
    std::vector<int> pickHorizontalLines(const QPointF& oPosition, const double& dTolerance) const;
    /// Removes the lines within the tolerance; tells whether there was one.
    bool eraseHorizontalLines(const QPointF& oPosition, const double& dTolerance);
    /// Removes the selected lines.
    void erasePickedLine();
    void eraseLine(int iLine);
    /// Moves the selected lines by the offset: y along the depth, x along linesX(). They keep their distances: none
    /// moves when one would have no depth (99999, infinity) then.
    void moveSelectedLines(const QPointF& oOffset);
    /// Puts a line at another depth.
    void updatePickedHorizon(int iLine, const double& dDepth);
    /// These change every selected line.
    void changePickedLineName(const QString& sName);
    void changePickedLineColor(const QColor& oColor);
    void changePickedOrientation(const QPointF& oDipAndAzimuth);
    void setSelected(int iLine, bool bSelected);
    /// Selects these lines, others keep their state.
    void setSelected(const std::vector<int>& viLines);
    void deselectAll();
    bool isSelected(int iLine) const;
    bool isSomethingSelected() const;
    std::vector<int> selectedLines() const;
    /// Removes all lines; name and flags stay.
    void clearAll();
    /// Forgets the rows that the lines came from.
    void clearOriginalRowPos();

    /// Writes the lines as a scenario file (DepthLineFile.h), in place of an existing one. A file that cannot be
    /// written is left alone, and nothing is reported.
    void write(const QString& sPath) const;
    /// Adds the lines of a scenario file; nothing when it cannot be read.
    void read(const QString& sPath);

    // ---- how the lines are shown ---------------------------------------------------------------------------------
    int lineWidth() const { return m_iLineWidth; } ///< pixels
    void setLineWidth(int iPixels) { m_iLineWidth = iPixels < 1 ? 1 : iPixels; }
    DomainType domainType() const { return m_eDomainType; }
    void setDomainType(DomainType eType) { m_eDomainType = eType; }
    int domainTransparency() const { return m_iDomainTransparency; } ///< per cent: 0 opaque, 100 not to be seen
    void setDomainTransparency(int iPercent);
    bool showHorizons() const { return m_bShowHorizons; }
    void setShowHorizons(bool bShow) { m_bShowHorizons = bShow; }
    bool showHorizonLabels() const { return m_bShowHorizonLabels; }
    void setShowHorizonLables(bool bShow) { m_bShowHorizonLabels = bShow; }
    bool showFaults() const { return m_bShowFaults; }
    void setShowFaults(bool bShow) { m_bShowFaults = bShow; }
    bool showFaultLabels() const { return m_bShowFaultLabels; }
    void setShowFaultLabels(bool bShow) { m_bShowFaultLabels = bShow; }
    bool showStructuralPlanes() const { return m_bShowStructuralPlanes; }
    void setShowStructuralPlanes(bool bShow) { m_bShowStructuralPlanes = bShow; }
    bool showStructuralPlaneLabels() const { return m_bShowStructuralPlaneLabels; }
    void setShowStructuralPlaneLabels(bool bShow) { m_bShowStructuralPlaneLabels = bShow; }
    bool showAverageOrientations() const { return m_bShowAverageOrientations; }
    void setShowAverageOrientations(bool bShow) { m_bShowAverageOrientations = bShow; }
    bool showAverageOrientationLabels() const { return m_bShowAverageOrientationLabels; }
    void setShowAverageOrientationLabels(bool bShow) { m_bShowAverageOrientationLabels = bShow; }
    /// What the flags say about lines of a type; interval boundaries are always shown, without labels.
    bool isShown(DataType eType) const;
    bool isLabelShown(DataType eType) const;

private:
    template <typename Keep>
    bool eraseLines(Keep keep);
    double distanceTo(int iLine, const QPointF& oPosition) const;
    bool contains(int iLine) const { return iLine >= 0 && iLine < count(); }

    QString m_sName;
    std::vector<double> m_vdDepths;
    std::vector<double> m_vdX;
    std::vector<QString> m_vsNames;
    std::vector<QColor> m_voColors;
    std::vector<DataType> m_veTypes;
    std::vector<QPointF> m_voOrientations;
    std::vector<int> m_viOriginalRows;
    std::vector<bool> m_vbDepthChanged;
    std::vector<bool> m_vbSelected;
    bool m_bModified = false;
    int m_iLineWidth = 1;
    DomainType m_eDomainType = NoDomains;
    int m_iDomainTransparency = 70;
    bool m_bShowHorizons = true;
    bool m_bShowHorizonLabels = true;
    bool m_bShowFaults = true;
    bool m_bShowFaultLabels = true;
    bool m_bShowStructuralPlanes = true;
    bool m_bShowStructuralPlaneLabels = true;
    bool m_bShowAverageOrientations = true;
    bool m_bShowAverageOrientationLabels = true;
};

} // namespace gkBase
