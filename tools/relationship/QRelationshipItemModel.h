#pragma once

#include "BiasWeights.h"
#include "DepthLineField.h"
#include "KMeansClusters.h"
#include "MatrixDataArray.h"
#include "MatrixDataPointer.h"
#include "OrientationStatistics.h"
#include "PointStyle.h"
#include "RelationshipClasses.h"
#include "RelationshipSource.h"
#include "Rotation.h"
#include "gkBaseToolsExport.h"

#include <QAbstractItemModel>
#include <QColor>
#include <QList>
#include <QMap>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVariant>

#include <array>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace gkBase {

/// The points behind a point chart: two attributes paired record by record, with their selection, classes and looks,
/// and what is computed from them (regression, intervals, decimation, clusters).
///
/// Points. There is one cell per record of the data set: cell i belongs to record i, so that a mask over points is a
/// mask over records. A cell is invalid where x or y is missing, or where the record is not among the table rows that
/// were given. The coordinates are copies in contiguous columns; they follow the attributes at the next
/// takeNewDataSet() or refresh(), which read what changed and nothing else.
///
/// For orientation charts x is the dip (or plunge) and y the azimuth. Both are in degrees, whatever the units of the
/// attributes; the coordinates of other charts are in model units.
///
/// Results. Clusters and the decimation stay as long as x, y and the number of records do, also when values change.
///
/// Nodes are not owned. One that is destroyed is forgotten; the owner of the model refills it after announcements of
/// removed nodes. As an item model it is a table of the points as x() and y() give them, one row per record.
class GKBASETOOLS_EXPORT QRelationshipItemModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    using PointStyle = gkBase::PointStyle;

    /// The kind of chart that the points are for.
    enum DisplayType
    {
        OrientationDisplay = 0, ///< x = dip or plunge, y = azimuth; also both one direction. In degrees
        DepthDisplay = 1,       ///< y = depth
        CrossPlotDisplay = 2
    };

    enum Column
    {
        XColumn,
        YColumn,
        ThirdColumn,
        ColorClassColumn,
        SymbolClassColumn,
        ClusterColumn,
        SelectedColumn,
        NumberOfColumns
    };

    explicit QRelationshipItemModel(QObject* pqParent = nullptr);
    ~QRelationshipItemModel() override;

    // ---- source --------------------------------------------------------------------------------------------------
    /// Pairs two attributes. iRows: number of records, −1 for that of the longer attribute, past which cells are
    /// invalid. viTableRows: the records that take part (rows of a filtered table), empty for all. A null attribute
    /// empties the model, as one of texts or colours does. The selection stays when the number of records stays,
    /// otherwise it is cleared. Costs nothing when nothing changed since the last time.
    void takeNewDataSet(int iRows, DisplayType eType, MatrixData* poX, MatrixData* poY,
                        const std::vector<int>& viTableRows);
    /// Orientations: dip (or plunge) and azimuth, with attributes for colour and symbol (null: none). bLines: the
    /// angles are those of lines, not of planes.
    void takeNewDataSet(int iRows, DisplayType eType, MatrixData* poDip, MatrixData* poAzimuth, MatrixData* poColor,
                        MatrixData* poSymbol, bool bLines, const std::vector<int>& viTableRows);
    /// Other attributes in the same chart, all records.
    void takeNewDataSet(MatrixData* poX, MatrixData* poY);
    /// Reads the attributes whose values changed.
    void refresh();
    void clear();

    /// Not owned. Clusters and decimation take the units of their nodes from it.
    void setDataRoot(MatrixData* poRoot) { m_poDataRoot = MatrixDataPointer(poRoot); }
    MatrixData* dataRoot() const { return m_poDataRoot.get(); }
    MatrixData* nodeX() const { return m_oX.get(); }
    MatrixData* nodeY() const { return m_oY.get(); }
    DisplayType displayType() const { return m_eDisplayType; }
    bool linesAreShown() const { return m_bLines; } ///< orientations of lines, not of planes
    /// The third coordinate of clusters; null for none.
    void setThirdDimAttribute(MatrixData* poAttribute);
    MatrixData* thirdDimAttribute() const { return m_oThird.get(); }

    int numberOfPoints() const { return static_cast<int>(m_vdX.size()); } ///< cells, invalid ones too
    int numberOfValidPoints() const { return m_iValidPoints; }
    /// One number per record in model units (orientations: degrees), NaN in both where the cell is invalid.
    std::span<const double> x() const { return m_vdX; }
    std::span<const double> y() const { return m_vdY; }
    /// Empty without a third attribute; NaN where it is missing.
    std::span<const double> third() const { return m_vdThird; }
    bool isValid(int iRecord) const;
    /// The points as a table of one column; an invalid cell is (99999.0, 99999.0). Owned by the model; made on
    /// demand and valid until the points change.
    MatrixDataArray* data() const;
    /// Grows with every change of points, classes, selection, clusters or looks: equal numbers mean an equal picture
    /// but for the lines.
    quint64 revision() const { return m_iRevision; }
    /// Grows with every change of x() and y(): equal numbers mean that the points lie where they lay.
    quint64 pointsRevision() const { return m_iPointsRevision; }
    /// Bounding box of the valid points; null rectangle without any.
    QRectF boundingBox() const;

    /// The record of the i-th table row that takes part, −1 out of range or for a row without a record.
    int tableRow(int i) const;
    int numberOfTableRows() const;

    // ---- selection -----------------------------------------------------------------------------------------------
    /// One flag per record, to be read; valid until the number of records changes. Null without records. (Signals
    /// carry it, hence not const. Written to, numberOfSelectedPoints() would be wrong.)
    bool* selection() { return m_vbSelected.isEmpty() ? nullptr : m_vbSelected.data(); }
    /// The same as bytes (0 or 1), for computations.
    std::span<const unsigned char> selectionMask() const;
    bool isSelected(int iRecord) const;
    void setSelected(int iRecord, bool bSelected);
    /// As setSelected(), but only for cells that hold a point; an invalid one stays unselected.
    void setSelected2(int iRecord, bool bSelected);
    /// Selects exactly these records; those out of range are skipped. Tells whether anything changed.
    bool setSelectedRecords(const std::vector<int>& viRecords);
    /// Adds (or, without bKeep, replaces by) the valid points for which the mask is true.
    void selectPoints(std::span<const unsigned char> vbMask, bool bKeep);
    void clearSelection();
    /// Selected records, those without a point too: as many as are selected in the table.
    int numberOfSelectedPoints() const { return m_iSelectedPoints; }
    std::vector<int> selectedRecords() const;
    /// Computations use only the selected points.
    bool partSelection() const { return m_bPartSelection; }
    void setPartSelection(bool bOn) { m_bPartSelection = bOn; }

    // ---- appearance ----------------------------------------------------------------------------------------------
    PointStyle pointStyle() const { return m_ePointStyle; }
    void setPointStyle(PointStyle eStyle);
    int pointPixelSize() const { return m_iPointPixelSize; } ///< half the symbol's width
    void setPointPixelSize(int iPixels);
    bool outLinePointStyle() const { return m_bOutLinePointStyle; } ///< hollow symbols
    void setOutLinePointStyle(bool bHollow);
    /// False: the panel hides the symbols (lines only).
    bool drawSymbols() const { return m_bDrawSymbols; }
    void setDrawSymbols(bool bDraw);

    /// The attribute whose classes colour the points; null switches it off. Texts, flags, whole numbers and colours
    /// have a class per value, other numbers a class per band of the colour map. So have whole numbers of more than
    /// s_iMaximumValueClasses values.
    void setColorAttribute(MatrixData* poAttribute);
    MatrixData* colorAttribute() const { return m_oColor.get(); }
    /// The attribute whose classes give the symbols, as above; null switches it off.
    void setSymbolAttribute(MatrixData* poAttribute);
    MatrixData* symbolAttribute() const { return m_oSymbol.get(); }
    bool colorAttributeIsOn() const { return m_oColorClasses.isOn(); }
    bool symbolAttributeIsOn() const { return m_oSymbolClasses.isOn(); }
    /// Bands of the colour map from dMin to dMax in model units; 99999.0 chooses a bound or the interval from the
    /// values.
    void setColorMap(double dMin, double dMax, double dInterval, bool bRedToBlue);
    /// The type of the colour attribute's cells (QMetaType::QColor: the data store the colours), QMetaType::Double
    /// without one.
    QMetaType::Type cellType() const;

    /// Classes of the points: id per record, names and colours per id. Id 0 stands for a missing value.
    const RelationshipClasses& colorClasses() const { return m_oColorClasses; }
    const RelationshipClasses& symbolClasses() const { return m_oSymbolClasses; }
    /// The point's colour; returns its colour class (0 without a colour attribute or value, then the colour of class
    /// 0). With only a symbol attribute on it is the colour and id of the symbol's class.
    int getColor(int iRecord, QColor& oColor) const;
    /// As getColor(), with the point's symbol class, which is the point style it is drawn in.
    int getColorAndSymbolInfo(int iRecord, QColor& oColor, int& iSymbol) const;
    /// The name of a class in display units.
    QString getColorName(int iClass) const;
    QString getSymbolName(int iClass) const;
    void changeSymbolColor(int iClass, const QColor& oColor);
    void changeColorClass(int iClass, const QColor& oColor);
    /// Select (or not) all points of a class.
    void setSelectedSymbol(int iClass, bool bSelected);
    void setSelectedColorClass(int iClass, bool bSelected);

    /// The azimuth (degrees) that is drawn as a tick on each point; null switches the tadpoles off.
    void setTadPoleAzimuthDataNode(MatrixData* poAzimuth);
    MatrixData* tadPoleAzimuthDataNode() const { return m_oTadPole.get(); }
    bool tadpoleAttributeIsOn() const { return m_oTadPole.get() != nullptr; }
    QString tadpoleAttributeName() const;
    double azimuthTadPole(int iRecord) const; ///< 99999.0 when missing
    /// Tadpoles whose quality lies below the minimum, or is missing, have open heads. Null: none.
    void setTadPoleQuality(MatrixData* poQuality, double dMinimum);
    MatrixData* tadPoleQualityNode() const { return m_oQuality.get(); }
    double tadPoleMinimumQuality() const { return m_dMinimumQuality; }
    bool tadPoleIsOpen(int iRecord) const;

    // ---- ranges --------------------------------------------------------------------------------------------------
    /// The shown range in model units, which decimation and interval filters are laid over.
    void setMinMaxRanges(double dXMin, double dXMax, double dYMin, double dYMax);
    double xMin() const { return m_dXMin; }
    double xMax() const { return m_dXMax; }
    double yMin() const { return m_dYMin; }
    double yMax() const { return m_dYMax; }
    /// The scan line (or well) along which orientations were sampled: plunge, azimuth and the largest angle between the
    /// line and the pole of a plane that is corrected, in degrees. 99999.0: no scan line.
    void setScanline(double dPlunge, double dAzimuth, double dLimitAngle);
    const ScanLine& scanLine() const { return m_oScanLine; }
    bool hasScanLine() const; ///< with plunge and azimuth

    // ---- orientations --------------------------------------------------------------------------------------------
    /// What follows holds for models of orientations: x() = dip or plunge, y() = azimuth, in degrees. bPoles true
    /// takes the poles of planes; false takes the records as lines (of planes: their dip lines). Planes have both kinds
    /// of results, lines only the second. Undefined results are (99999.0, 99999.0), among them axes that the records
    /// leave open, such as T and L of identical records. Results are computed when a function here says so, and
    /// forgotten when other attributes come.

    /// The records that count as selected: the selected ones; without any, all of them, or none when
    /// setEmptySelectionTakesAll(false) says so. An empty span means all.
    std::span<const unsigned char> takenMask() const;
    void setEmptySelectionTakesAll(bool bAll);
    bool emptySelectionTakesAll() const { return m_bEmptySelectionTakesAll; }
    /// Valid points among the records that count as selected. Counted again only after changes.
    int numberOfTakenPoints() const;
    /// What statistics, density and clusters are of: takenMask() with partSelection(), otherwise all.
    std::span<const unsigned char> usedMask() const { return orientationMask(m_bPartSelection); }
    int numberOfUsedPoints() const { return m_bPartSelection ? numberOfTakenPoints() : m_iValidPoints; }

    /// The orientation matrix (sums of products of direction cosines), the resultant and the number of the records; all
    /// 0 without any. poData: other orientations, a MatrixDataArray of points (dip or plunge, azimuth) with one row per
    /// record, such as a copy of data(); null takes the model's own. bSelectionOnly restricts to takenMask(). Weighed
    /// when bias correction is on.
    void initialiseCharacteristicMatrix(double (&aadMatrix)[3][3], double& dSx, double& dSy, double& dSz, int& iCount,
                                        bool bPoles, bool bSelectionOnly, const MatrixData* poData = nullptr) const;
    /// All statistics of the records.
    OrientationStatistics orientationStatistics(bool bPoles, bool bSelectionOnly) const;
    /// Fisher statistics, increasing eigenvalues, Woodcock parameters and classification; α95 in radians, 99999.0 for
    /// what is undefined and for an unbounded κ. The mean resultant length comes twice.
    void calculateFisherStatistics(double& dMeanResultantLength, double& dSphericalVariance, double& dKappa,
                                   double& dE1, double& dE2, double& dE3, double& dMeanResultantLength2, double& dK,
                                   double& dC, double& dLnS1S2, double& dLnS2S3, double& dAlpha95, bool& bUnimodal,
                                   QString& sClassification, bool bPoles, bool bSelectionOnly) const;
    /// The Woodcock parameters of one of the present clusters; 99999.0 for a cluster without records.
    void calculateWoodcockParameterForOneSubSet(int iCluster, double& dK, double& dC, double& dLnS1S2, double& dLnS2S3,
                                                bool bPoles) const;
    /// Computes the means, T and L of both kinds, which the functions below give, from the records that partSelection()
    /// leaves. The suggested section stays as it is, but becomes undefined without a resultant mean.
    void updateOrientationResults();
    /// Stores the suggested section: the plane whose pole is the middle eigenvector of poData (records that were turned
    /// to their mean; null: the model's own), of lines that eigenvector. Nothing without records.
    void calculateSuggestedSectionOrientation(bool bPoles, bool bSelectionOnly, MatrixData* poData);

    /// Planes (dip, dip azimuth) whose poles are the results of the poles.
    QPointF meanResultantPole() const;
    QPointF meanPrincipalPlane() const;
    QPointF TdirectionPlane() const;
    QPointF LdirectionPlane() const;
    QPointF suggestedSectionPlane() const;
    /// Lines (plunge, azimuth): the results of the records as lines.
    QPointF meanResultantDipDirection() const;
    QPointF meanPrincipalDipDirection() const;
    QPointF TdirectionDipDirection() const;
    QPointF LdirectionDipDirection() const;
    QPointF suggestedSectionDipDirection() const;

    /// Turns the records about a horizontal axis so that the mean (planes: dip and dip azimuth, which becomes level;
    /// lines: plunge and azimuth, which becomes vertical) comes to the centre of the net. bPrimary: the results are
    /// computed again for the turned records; false only turns. poData: a copy of data() that is turned instead of the
    /// model's points, results stay then; attributes of the tree never change. Nothing for a missing mean.
    void rotateDataToMeanPole(const QPointF& oMeanPole, bool bPrimary, MatrixData* poData);
    /// Turns by an angle in degrees, clockwise as seen along the axis (plunge, azimuth) downwards; of planes the poles.
    /// A second model follows the first with the axis and angle of its rotations().back(). A missing axis or angle, or
    /// whole turns, leave the points as they are.
    void rotateDataAboutRotationAxis(MatrixData* poData, const QPointF& oAxis, const double& dAngle, bool bPrimary);
    /// The model's points are turned. Rotations last until takeNewDataSet() with other attributes; they stay when
    /// values are read again. The points are always the attributes' values turned once, by all rotations together.
    bool isRotated() const { return !m_vRotations.empty(); }
    int numberOfRotations() const { return static_cast<int>(m_vRotations.size()); }
    std::span<const Rotation> rotations() const { return m_vRotations; } ///< in the order in which they came
    /// Takes the last rotation back; the points are exactly what they were. Results are computed again.
    void undoRotation();
    void undoAllRotations();
    /// (dip or plunge, azimuth) of a record after the rotations; (99999.0, 99999.0) for an invalid one.
    QPointF rotatedData(int iRecord) const;

    /// Weighs records against the sampling along the scan line, in statistics and contours. Weights come from the
    /// orientations as they were measured, also while the points are turned.
    void setBiasCorrectionOn(bool bOn);
    bool biasCorrectionIsOn() const { return m_bBiasCorrection; }
    bool canBeBiasCorrected(int iRecord) const; ///< a valid record and a scan line
    /// The weight of a record: weights add up to the number of valid records. 1 without a scan line, 99999.0 for an
    /// invalid record.
    double biasCorrection(int iRecord) const;
    /// The same from the total of totalBiasWeight(): weight of the record times iCount / dTotal.
    double biasCorrection(const int& iRecord, const int& iCount, const double& dTotal) const;
    /// Sum of the weights before they are scaled.
    void totalBiasWeight(double& dTotal) const;
    /// One weight per record, NaN for invalid ones; empty without a scan line.
    std::span<const double> biasWeights() const;
    /// biasWeights() while the correction is on, else empty: for statistics and density.
    std::span<const double> appliedWeights() const;

    /// The density of poles and of lines as the canvas counted it last: nodes of the square around the net, no rows
    /// before. Owned by the model, never null.
    MatrixDataArray* contourGridPoles() const { return m_poContourGridPoles.get(); }
    MatrixDataArray* contourGridDipDir() const { return m_poContourGridDipDir.get(); }

    /// k-means of the records as axes (poles of planes, or lines), in which the distance of two axes is the sine of the
    /// angle between them, so that a set on both sides of the rim stays one set. Centroids are the principal axes of
    /// the clusters in two columns, dip or plunge and azimuth; the largest cluster is number 0. With partSelection()
    /// the records of takenMask(). Otherwise as buildClusters_KML().
    bool buildClusters_KML_ForStereoProjection(const QString& sAttributeName, int k);

    // ---- regression ----------------------------------------------------------------------------------------------
    /// y = slope · x + intercept with the correlation; slope 99999.0 when all x are equal, all 0 below 4 points.
    /// Means are taken over n + 1 points: the line lies a little nearer to the origin than least squares put it.
    void calculateRegressionLine(double& dSlope, double& dIntercept, double& dCorrelation) const;

    // ---- lines at depths -----------------------------------------------------------------------------------------
    DepthLineField* intervalFilter() const;
    DepthLineField* structuralTops() const; ///< of the active scenario; null without one
    const std::vector<std::unique_ptr<DepthLineField>>& structuralTopsScenarios() const;
    int activeScenario() const; ///< −1 without one
    void setActiveScenario(int iScenario);
    /// Adds an empty scenario and makes it the active one. Names may repeat.
    void addStructuralTopsSenario(const QString& sName);
    void activateStructuralTopsSenario(const QString& sName);
    /// The scenario before it, or the first, becomes active.
    void eraseActiveStructuralTopsSenario();
    /// From now on both models have the same lines and scenarios: those of the other one.
    void shareLines(const QRelationshipItemModel& other);

    /// Boundaries from dMin every dSize while below dMax, and a last one where that stopped. Nothing for a size not
    /// above 0 or bounds that are missing or equal; at most 100,000.
    void generateAquidistantIntervalFilter(const double& dSize, const double& dMin, const double& dMax);
    /// n intervals of equal size.
    void generateNumberOfIntervalFilter(const int& n, const double& dMin, const double& dMax);
    /// By hand; none when one lies within the tolerance. Emits manuellBinInserted(true).
    void insertIntervalBoundary(const double& dDepth, const double& dTolerance);
    /// Erases the nearest boundary when it lies within the tolerance, emits manuellBinInserted(false) and tells so.
    bool eraseIntervalBoundary(const QPointF& oPosition, const double& dTolerance);
    void deleteIntervalBoundaries();

    // ---- decimation ----------------------------------------------------------------------------------------------
    /// Bins the points by y between consecutive boundaries, [b, b') with the last one closed. x is averaged; with a
    /// tadpole azimuth, x and that azimuth are the dip and azimuth of planes, averaged as the resultant of their
    /// lower-hemisphere poles. With partSelection() only selected points. No boundaries: no bins.
    void generateDataDecimation();
    /// One row per bin: depth of its centre and mean value (orientations: dip, and azimuth in degrees), in the units of
    /// y() and x(); 99999.0 for an empty bin.
    /// Null before generateDataDecimation(). Owned by the model.
    MatrixDataArray* decimationData() const { return m_poDecimation.get(); }
    /// One row per bin, "dimensionless": the number of points, those without a tadpole azimuth too. Null and owned as
    /// above.
    MatrixData* decimationCount() const { return m_poDecimationCount.get(); }
    /// Per bin the record nearest to its centre, −1 in an empty bin.
    const std::vector<int>& decimationTableRows() const { return m_viDecimationRows; }
    /// Per bin (dip, azimuth) in degrees, (99999.0, 99999.0) where there is none. Empty unless orientations were
    /// averaged.
    const std::vector<QPointF>& decimationAngle() const { return m_voDecimationAngles; }
    /// Bin of a record in the last decimation, −1 for none.
    int decimationBin(int iRecord) const;
    /// The bins' bounds: one number more than bins.
    const std::vector<double>& decimationBoundaries() const { return m_vdDecimationBoundaries; }

    // ---- clusters ------------------------------------------------------------------------------------------------
    /// k-means of (x, y) or (x, y, third) in model units, kept under the name, which becomes clusterAttributeName().
    /// Points without a third value, and with partSelection() unselected ones, are left out. k is cut down to the
    /// distinct points; k below 1 or no points: nothing happens. Tells whether clusters were made.
    bool buildClusters_KML(const QString& sAttributeName, int k);
    /// The centroids of that name, made (without rows) when they do not exist: k rows of 2 or 3 columns. Owned by the
    /// model until clearClusters() or takeNewDataSet() with other attributes.
    MatrixDataArray* findClusterCentroids(const QString& sAttributeName);
    /// The clusters of clusterAttributeName(): centroids (null without any), and per record its cluster from 0, or −1
    /// where it has none.
    MatrixDataArray* clusterCentroids() const;
    int clusterID(int iRecord) const;
    std::span<const int> clusterIDs() const;
    std::span<const std::size_t> clusterSizes() const;
    double clusterDistortion() const; ///< total of squared distances
    QString clusterAttributeName() const { return m_sClusterAttributeName; }
    /// Shows the clusters that were built under that name.
    void setClusterAttributeName(const QString& sName);
    /// Forgets the clusters of all names.
    void clearClusters();
    QString biasAttributeName() const { return m_sBiasAttributeName; }
    void setBiasAttributeName(const QString& sName) { m_sBiasAttributeName = sName; }

    // ---- item model ----------------------------------------------------------------------------------------------
    QModelIndex index(int iRow, int iColumn, const QModelIndex& oParent = {}) const override;
    QModelIndex parent(const QModelIndex& oChild) const override;
    int rowCount(const QModelIndex& oParent = {}) const override;
    int columnCount(const QModelIndex& oParent = {}) const override;
    QVariant data(const QModelIndex& oIndex, int iRole = Qt::DisplayRole) const override;
    QVariant headerData(int iSection, Qt::Orientation eOrientation, int iRole = Qt::DisplayRole) const override;
    /// The selected column only: a check state or bool.
    bool setData(const QModelIndex& oIndex, const QVariant& qValue, int iRole = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& oIndex) const override;

signals:
    /// A boundary was inserted (true) or erased (false) by hand.
    void manuellBinInserted(bool bInserted);

private:
    /// Lines and scenarios, which the tracks of one well share.
    struct Lines
    {
        DepthLineField m_oIntervalFilter;
        std::vector<std::unique_ptr<DepthLineField>> m_vScenarios;
        int m_iActive = -1;
    };

    /// Results of the poles, or of the lines.
    struct OrientationResults
    {
        QPointF m_oMeanResultant{99999.0, 99999.0};
        QPointF m_oMeanPrincipal{99999.0, 99999.0};
        QPointF m_oT{99999.0, 99999.0};
        QPointF m_oL{99999.0, 99999.0};
        QPointF m_oSuggestedSection{99999.0, 99999.0};

        bool operator==(const OrientationResults&) const = default;
    };

    /// What k-means found under a name.
    struct Clusters
    {
        std::unique_ptr<MatrixDataArray> m_poCentroids;
        std::vector<int> m_viIDs;
        std::vector<std::size_t> m_viSizes;
        double m_dDistortion = 0.0;
    };

    void changed()
    {
        ++m_iRevision;
        ++m_iSumsRevision;
    }
    /// Only what was computed from the records.
    void resultsChanged() { ++m_iRevision; }
    void columnChanged(int iColumn);
    bool contains(int iRecord) const { return iRecord >= 0 && iRecord < numberOfPoints(); }
    void setLines(bool bLines);
    void setNodes(int iRows, DisplayType eType, MatrixData* poX, MatrixData* poY, const std::vector<int>& viTableRows);
    void load();
    void clearResults();
    static void readClasses(RelationshipClasses& classes, const RelationshipSource& source,
                            const RelationshipClasses::ColorMap& oColorMap, RelationshipSource::Change eChange);
    static QString className(const RelationshipClasses& classes, const RelationshipSource& source, int iClass);
    void loadPoints();
    void keepOnlyTableRows();
    /// The mask that computations are restricted to; empty for none.
    std::span<const unsigned char> partMask() const;
    void setSelectedClass(std::span<const int> viIds, int iClass, bool bSelected);
    void selectionChanged();
    void setIntervalLines(const std::vector<double>& vdDepths);
    void countBins(int iBins);
    void averageValues(std::span<const int> viBins, int iBins);
    void averageOrientations(std::span<const int> viBins, int iBins);
    QVariant cellText(int iRecord, int iColumn) const;
    void storeClusters(const QString& sAttributeName, KMeansClusters found);
    /// takenMask() or, for false, an empty span.
    std::span<const unsigned char> orientationMask(bool bSelectionOnly) const;
    OrientationSums orientationSums(bool bPoles, bool bSelectionOnly, const MatrixData* poData) const;
    static OrientationResults resultsOf(bool bPoles, const OrientationSums& oSums);
    void addRotation(const Rotation& oRotation, bool bPrimary, MatrixData* poData);
    void turnPoints();
    void rotationsChanged();
    void turnCentroids(const Rotation& oRotation);
    void forgetRotations();
    double sampledWeight(std::size_t iRecord) const;

    MatrixDataPointer m_poDataRoot;
    RelationshipSource m_oX;
    RelationshipSource m_oY;
    RelationshipSource m_oThird;
    RelationshipSource m_oColor;
    RelationshipSource m_oSymbol;
    RelationshipSource m_oTadPole;
    RelationshipSource m_oQuality;
    DisplayType m_eDisplayType = CrossPlotDisplay;
    bool m_bLines = false;
    std::vector<double> m_vdX;
    std::vector<double> m_vdY;
    std::vector<double> m_vdThird;
    std::vector<double> m_vdTadPoles;
    std::vector<double> m_vdQualities;
    std::vector<int> m_viTableRows; ///< empty: all
    int m_iRequestedRows = -1;
    bool m_bOtherRows = false; ///< table rows or number of records changed since the points were read
    int m_iValidPoints = 0;
    std::vector<double> m_vdUnturnedX; ///< as read from the attributes, while there are rotations
    std::vector<double> m_vdUnturnedY;
    mutable std::unique_ptr<MatrixDataArray> m_poData;
    quint64 m_iRevision = 0;
    quint64 m_iPointsRevision = 0;

    QList<bool> m_vbSelected;
    int m_iSelectedPoints = 0;
    bool m_bPartSelection = false;

    PointStyle m_ePointStyle = PointStyle::Circle;
    int m_iPointPixelSize = 3;
    bool m_bOutLinePointStyle = false;
    bool m_bDrawSymbols = true;
    RelationshipClasses::ColorMap m_oColorMap;
    RelationshipClasses m_oColorClasses;
    RelationshipClasses m_oSymbolClasses;
    double m_dMinimumQuality;
    double m_dXMin;
    double m_dXMax;
    double m_dYMin;
    double m_dYMax;

    bool m_bEmptySelectionTakesAll = true;
    mutable int m_iTakenPoints = 0;
    /// Sums over the records, of poles and of lines, of all and of those that count: statistics and results share them.
    struct CachedSums
    {
        OrientationSums m_oSums;
        quint64 m_iRevision = ~quint64{0};
    };
    mutable std::array<CachedSums, 4> m_aSums;
    quint64 m_iSumsRevision = 0;                    ///< grows with every change that they may depend on
    mutable quint64 m_iTakenRevision = ~quint64{0}; ///< when they were counted
    ScanLine m_oScanLine;
    bool m_bBiasCorrection = false;
    mutable std::vector<double> m_vdBiasWeights;
    mutable quint64 m_iBiasRevision = 0; ///< of the points when the weights were computed; 0: not yet
    OrientationResults m_oPoleResults;
    OrientationResults m_oLineResults;
    std::vector<Rotation> m_vRotations; ///< those of the points, the first one first
    std::unique_ptr<MatrixDataArray> m_poContourGridPoles;
    std::unique_ptr<MatrixDataArray> m_poContourGridDipDir;

    std::shared_ptr<Lines> m_pLines;
    std::unique_ptr<MatrixDataArray> m_poDecimation;
    std::unique_ptr<MatrixData> m_poDecimationCount;
    std::vector<int> m_viDecimationRows;
    std::vector<QPointF> m_voDecimationAngles;
    std::vector<int> m_viDecimationBins;
    std::vector<double> m_vdDecimationBoundaries;

    std::map<QString, Clusters> m_clusters;
    const Clusters* m_pClusters = nullptr; ///< those of m_sClusterAttributeName
    QString m_sClusterAttributeName;
    QString m_sBiasAttributeName;
};

} // namespace gkBase
