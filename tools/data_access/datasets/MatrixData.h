#pragma once

#include "MatrixColumn.h"
#include "MatrixDataPointer.h"
#include "gkBaseQtExport.h"

#include <QColor>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QModelIndex>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <unordered_map>
#include <vector>

class QDataStream;
class QMimeData;

namespace gkBase {

class MatrixDataNotifier;
class MatrixDataRestore;
class MatrixDataUndoStack;
class UnitManager;
class UnitRegistry;

/// One node of a data-set tree: the root holds data sets, a data set holds attributes, an attribute holds a column
/// of values. A node without children may also be a table with several columns of one type (frequency tables,
/// centroid tables).
///
/// Rows. A *sheet row* counts the summary rows at the top (minimum, mean, maximum: rowOffSet() of them, 3 for
/// attributes, 0 for tables); a *record* does not: record = sheet row − rowOffSet(). value(), setValue() and the
/// table models speak sheet rows; selections, masks, statistics and charts speak records. The summary rows are
/// computed from the records and cannot be written.
///
/// Ownership. A node owns its children. Removed children belong to the undo record that removed them, so that
/// undoing puts the same object back. The owner link (owner()) of an attribute names its data set and is empty for
/// a data set; it tells the two kinds apart and owns nothing.
///
/// Bad input (a row, column or child out of range, a null pointer) reads as empty and writes nothing.
class GKBASEQT_EXPORT MatrixData
{
public:
    enum HistogramType
    {
        Frequency = 0,
        RelativeFrequency = 1,
        CumulativeRelativeFrequency = 2
    };

    /// What a chart needs of a data set before it offers it in its chooser.
    enum AttributeCollection
    {
        AnyAttribute = 0, ///< at least one attribute
        NumericAttribute, ///< at least one double, int or bool attribute: each such attribute is one entry
        NumericPair,      ///< at least two numeric attributes
        DepthAndNumeric,  ///< a depth and one further numeric attribute
        Direction,        ///< an attribute of azimuths: each is one entry
        DipAndAzimuth     ///< a dip (or plunge) and its azimuth
    };

    /// A node named sName with iColumns columns of iRows records each; −1 means none yet. eType is the type of
    /// every column. iRowOffSet is the number of summary rows: 3 for roots, data sets and attributes, 0 for tables.
    explicit MatrixData(const QString& sName = QString(), int iRows = -1, int iColumns = -1,
                        QMetaType::Type eType = QMetaType::Double, int iRowOffSet = 3);
    /// bDeep copies the values and the children; otherwise only name, type, unit, colour and flags. Owner links
    /// inside the copy point into the copy; the copy itself has no owner, no undo list and an identifier of its own.
    MatrixData(const MatrixData& other, bool bDeep = true);
    /// Takes values, name, unit, colour and flags of the other node (deep), and copies of its children. The place in
    /// the tree, the identifier and the undo list stay.
    MatrixData& operator=(const MatrixData& other);
    virtual ~MatrixData();

    /// A deep copy of the dynamic type (attribute, array, strike). The caller owns it.
    virtual MatrixData* clone() const;

    // ---- tree -------------------------------------------------------------------------------------------------
    int childCount() const { return static_cast<int>(m_vChildren.size()); }
    MatrixData* child(int i) const;
    /// True for a node that holds values: one with an owner link, or one without children that has columns.
    bool isAttribute() const { return m_vChildren.empty() && (m_poOwner || columnCount() > 0); }
    /// Position among the children, −1 when it is none of them.
    int indexOfChild(const MatrixData* poNode) const;
    /// Takes ownership. bSetOwner sets the child's owner link to this node (attributes); false leaves it as it is.
    void appendChild(MatrixData* poNode, bool bSetOwner);
    /// Takes ownership; an index out of range inserts at the nearer end. Leaves the owner link as it is.
    void insertChild(int iIndex, MatrixData* poNode);
    /// Takes the node out of the tree below this node, wherever it stands. The undo record that announced the
    /// removal keeps it; without such a record it is destroyed. Does nothing when the node is not below this one.
    void removeChild(MatrixData* poNode);
    /// As removeChild(), but the caller gets the node. Null when it is not below this one.
    std::unique_ptr<MatrixData> takeChild(MatrixData* poNode);
    /// All attributes below this node in tree order (the node itself when it is one).
    std::vector<MatrixData*> leafs() const;
    /// The n-th selected attribute below this node in tree order: column n of the table. Null when out of range.
    MatrixData* getNode(int iColumn) const;
    /// The first node below this one (tree order, data sets included) of that name; null when there is none.
    MatrixData* getNodeFromName(const QString& sName) const;
    /// The first attribute below this node that holds at least one record; null when there is none.
    MatrixData* getFirstChildWithData() const;
    /// The node that holds this one among its children; null for a root.
    MatrixData* parentNode() const { return m_poParent; }
    MatrixData* root();
    const MatrixData* root() const;

    /// Null as well once the data set is destroyed.
    MatrixData* owner() const { return m_poOwner.get(); }
    void setOwner(MatrixData* poOwner) { m_poOwner = MatrixDataPointer(poOwner); }

    QString name() const { return m_sName; }
    void setName(const QString& sName);
    /// Makes sName unlike every name below this node by appending _1, _2, …; the node being named may be given so
    /// that its own name does not count. Linear in the number of nodes.
    void createUniqueName(QString& sName, const MatrixData* poNamed = nullptr) const;
    int globalID() const { return m_iGlobalIdOfNode; }
    static int m_iGlobalID; ///< the identifier that the next node gets

    /// True for the vertex coordinate attributes X, Y and Z of a data set, which cannot be deleted.
    bool isVertex() const { return m_bVertex; }
    void setVertex(bool bVertex) { m_bVertex = bVertex; }
    bool isEditable() const { return m_bEditable; }
    void setEditable(bool bEditable) { m_bEditable = bEditable; }

    /// The flag of an attribute; a data set or root is selected when at least one attribute below it is (its own
    /// flag counts while it has none).
    bool isSelected() const;
    /// Switches an attribute in or out of table and charts. On a data set or root it applies to all attributes
    /// below. bDeselectSiblings true: all siblings are switched off first.
    void setSelected(bool bSelected, bool bDeselectSiblings = false);
    /// Number of selected attributes below this node: the columns of the table.
    int numberOfSelectedItems() const;
    /// Table rows that show the selected attributes: iStep the thinning step (below 1: none), iListSize the length
    /// of a list of rows (0: no list). A list: its size, ceil(size / step) when thinned. No list: row offset +
    /// longest column N, or 1 + N / step when thinned.
    int maxNumbOfSelectedRows(int iStep, int iListSize) const;

    // ---- values -----------------------------------------------------------------------------------------------
    QMetaType::Type type() const { return m_eType; }
    /// Changes the type of every column, converting the cells; a text that is no number becomes missing. For undo,
    /// MatrixDataRestore::storeContents() keeps the type too.
    void setType(QMetaType::Type eType);
    int rowOffSet() const { return m_iRowOffSet; }
    /// Sheet rows: row offset + records.
    int rowCount() const { return m_iRowOffSet + recordCount(); }
    virtual int columnCount() const;
    /// Length of the longest column.
    virtual int recordCount() const;
    /// True for nodes whose cells are not kept in columns: computed from another attribute (strike) or in an array.
    /// Such nodes have no length of their own that could be changed.
    virtual bool isDerived() const { return false; }

    /// The summary rows of column 0 (minimum, mean, maximum) are doubles, minimum and maximum of int and bool
    /// columns ints; invalid for texts, colours and columns without a value.
    QVariant value(int iRow, int iColumn) const;
    /// The cell of a table-model index: its row, column 0.
    QVariant value(const QModelIndex& index) const;
    /// Sheet rows at or above the row offset only; a row past the end extends the column with missing cells (a node
    /// without columns gets its first one). Announced by MatrixDataNotifier::valuesChanged(): put a
    /// MatrixDataNotifier::Batch around many calls.
    void setValue(int iRow, int iColumn, const QVariant& qValue);
    void setValue(const QModelIndex& index, const QVariant& qValue);
    void setValue(int iRow, const QVariant& qValue) { setValue(iRow, 0, qValue); }
    /// Inserts a cell into column 0; the cells from that sheet row on move down.
    void insertValue(int iRow, const QVariant& qValue);
    /// 99999.0 for a missing cell or one that is no number.
    double toDouble(int iRow, int iColumn) const;
    /// 99999 for a missing cell or one that is no number.
    int toInt(int iRow, int iColumn) const;
    /// A value in display units; 99999.0 for an invalid variant.
    double toDisplayDouble(const QVariant& qValue) const;

    /// The cells of a column, an empty column when out of range. For derived attributes the computed cells; the
    /// reference stays valid until the values change.
    virtual const MatrixColumn& column(int iColumn = 0) const;
    /// Write access for importers, models and undo. Call valuesChanged() after writing. Do not change the type of
    /// the column (setColumn() does). Out of range, or for a derived attribute, it gives a column that nobody reads.
    virtual MatrixColumn& mutableColumn(int iColumn = 0);
    /// Replaces a column; iColumn == columnCount() adds one. The node takes the type of its first column, further
    /// columns are converted to it. Nothing for derived attributes.
    void setColumn(int iColumn, MatrixColumn column);
    /// Drops cached ranges and tells the root that the values of this node, and of attributes derived from it,
    /// changed.
    void valuesChanged();
    /// Grows with every change of the values: equal numbers mean that what was computed from them still holds.
    quint64 revision() const { return m_iRevision; }
    /// Number of a record, NaN when missing (99999.0 counts as missing).
    double recordNumber(int iRecord, int iColumn = 0) const { return cellNumber(iRecord, iColumn); }

    /// Appends missing cells to every column of this node, or of the attributes below it.
    void appendRows(int iRows);
    /// Appends columns of missing cells, as long as the longest.
    void appendColumns(int iColumns);
    /// One missing cell at the end of every attribute below this node (each to the length of its data set + 1).
    void appendOneRowForEachColumn();
    /// Brings every attribute of each data set below to the length of the longest one (bGrow) or drops the missing
    /// cells that all of them have at their ends.
    void resetRowCount(bool bGrow);
    /// Every data set's attributes get equal lengths (the longest). Called after a paste; the record of the paste
    /// takes MatrixDataRestore::storeRowCount() of this node first, since any attribute may grow.
    void checkValidRowCount();

    /// The value that stands for missing cells of flags and choices (for example the visibility "$V").
    void setDefaultValue1(const QVariant& qValue) { m_qDefaultValue1 = qValue; }
    QVariant defaultValue1() const { return m_qDefaultValue1; }
    void setDefaultValue2(double dValue) { m_dDefaultValue2 = dValue; }
    double defaultValue2() const { return m_dDefaultValue2; }

    /// Fills the missing cells among the sheet rows iFirstRow … iLastRow of a numeric column linearly between the
    /// nearest values around each gap inside that range; gaps at its ends stay. The old cells go into poRestore
    /// (may be null).
    void interpolate(int iFirstRow, int iLastRow, int iColumn, MatrixDataRestore* poRestore);
    /// Linear look-up in a table: searches the rising column iColumnY for x and returns the value of column
    /// iColumnX there. Clamped to the ends outside; 99999.0 for an empty table.
    double getInterpolationValue(double x, int iColumnX, int iColumnY) const;
    /// Makes the table a curve: one row for each distinct value b of column iColumnB, rising, holding the mean a of
    /// column iColumnA in the rows with that b; closed by the right edge (column 2) of the last row at b = the last
    /// height (column 3) when the table has those columns. The result keeps a in column iColumnA, b in iColumnB.
    void reduceToAveraged(int iColumnA, int iColumnB);
    /// Appends to each data set below that has vertices X, Y, Z but no depth an attribute "Measured Depth": the
    /// length along the path of its vertices, in the unit of Z.
    void createMeasuredDepth();

    QStringList columnHeaders() const { return m_lColumnHeaders; }
    void setColumnHeaders(const QStringList& lHeaders) { m_lColumnHeaders = lHeaders; }

    // ---- units ------------------------------------------------------------------------------------------------
    /// Not owned; asked by setUnitManager(category). Inherited from the parents when not set here.
    void setRegistry(UnitRegistry* poRegistry) { m_poRegistry = poRegistry; }
    UnitRegistry* registry() const;
    /// Takes the registry's manager of that category, or one in the present model unit when it fits the category (a
    /// length in feet becomes a depth in feet); an unknown category changes nothing.
    void setUnitManager(const QString& sCategory);
    void setUnitManager(boost::shared_ptr<UnitManager> poUnitManager);
    /// Never null: a node without a unit has the dimensionless one.
    boost::shared_ptr<UnitManager> unitManager() const;
    QString unitCategory() const;

    // ---- colours and symbols ----------------------------------------------------------------------------------
    QColor color() const { return m_oColor; }
    void setColor(const QColor& oColor);
    /// The colour of a cell of a colour attribute; invalid when missing or of another type.
    QColor color(const QModelIndex& index) const;
    /// The colour that a text names: "#rrggbb" or a colour name; invalid otherwise.
    QColor color(const QString& sText) const;
    /// The node's colour as "#rrggbb".
    QString colorHexaString() const { return colorHexaString(m_oColor); }
    static QString colorHexaString(const QColor& oColor);
    /// Black for a text that is no colour.
    static QColor colorFromHexaString(const QString& sText);
    /// Cycles through a palette that reads on white and black; bRestart begins with its first colour.
    static QColor getDefaultColor(bool bRestart = false);

    /// Class ids of a symbol attribute (text, int, bool or double cells): the distinct values get 1, 2, 3 … (texts
    /// and numbers in rising order), a missing cell gets 0. vIds has one entry per record. names and colors have an
    /// entry per id, and one for id 0 ("" and gray), which legends do not list.
    void createSymbolIDs(std::vector<int>& vIds, QMap<int, QVariant>& names, QMap<int, QColor>& colors) const;
    /// Class ids of a numeric attribute by the bands of a colour map with the given interval from dMin to dMax:
    /// id 1 is the lowest band; values outside go to the first or last band. Missing cells get 0. Names are the
    /// bands in display units ("0.25 – 0.50"). A colour attribute gets one id per distinct colour, in the order of
    /// their RGB values; all its names, that of id 0 included, are colours.
    void createColorMapSymbolIDs(std::vector<int>& vIds, QMap<int, QVariant>& names, QMap<int, QColor>& colors,
                                 double dMin, double dMax, double dInterval, bool bRedToBlue) const;

    // ---- statistics (records; missing values never count) --------------------------------------------------------
    /// Of column 0, all records; both 99999.0 when there is no value. Cached until the values change.
    void getMinMax(double& dMin, double& dMax) const;
    /// Mean of column 0; 99999.0 without values.
    double mean() const;
    /// Restricts minimum and maximum of a column to the given records (an empty list: all), until values change.
    void setMinMax(int iColumn, const std::vector<int>& viRecords);
    /// Sample standard deviation (n − 1) of column 0; 99999.0 below two values.
    double standardDeviation() const;
    double standardDeviation(const std::vector<int>& viRecords) const;
    /// Mean azimuth in [0, 360) of the given records (an empty list: all) from the sum of their unit vectors, with
    /// the mean resultant length in [0, 1]. 99999.0 and 0 without values; Mardia and Jupp 2000, section 2.2.
    double resultantMeanDirection(double& dResultantLength, const std::vector<int>& viRecords) const;
    /// Counts the given records (an empty list: all) into classes of dIntervalSize from the minimum, closed on the
    /// left, the last one on both sides. 99999.0 (or anything not above 0) chooses the size and returns it.
    ///
    /// The result (the caller owns it) has row offset 0, one row per class and the columns left edge, cumulative
    /// per cent at the left edge, right edge, height; the height is a count, per cent, or cumulative per cent at
    /// the right edge (the last is 100). All values equal: one class, interval 0. No values: no rows. The number
    /// of classes is capped at 100000 and the interval enlarged and returned when it would need more. The frequency
    /// table has the colour of this node. poClasses (may be null) is an attribute whose distinct values split each
    /// height: one further column per class from column 4 on. bClosed is kept for callers; true always.
    MatrixData* newFrequencyData(double& dIntervalSize, HistogramType eType, const std::vector<int>& viRecords,
                                 MatrixData* poClasses, bool bClosed) const;
    /// Sectors of a direction attribute: iClasses classes of dIntervalSize from dStart, values taken modulo 360.
    /// bUnidirectional false counts each value at + 180 as well. The result has one row per sector and column 0 =
    /// height; with poColorAttribute further columns hold the height of each colour class, whose values go into
    /// poClassValues (a table of one column; may be null). poColorDataSet is kept for callers; the colour attribute
    /// alone decides.
    MatrixData* newFrequencyData(double dIntervalSize, int iClasses, double dStart, HistogramType eType,
                                 const std::vector<int>& viRecords, MatrixData* poColorAttribute,
                                 MatrixData* poColorDataSet, MatrixData* poClassValues, bool bUnidirectional) const;
    /// Largest value of a column of a table (the heights of a frequency table); 0 without values.
    double maximumOfColumn(int iColumn) const;
    /// True when a data set below (or this one) holds a dip and an azimuth in the category "orientation".
    bool hasOrientationData() const;
    /// The thinning step that shows about as many rows as iRows; −1 when none is needed. Remembered until
    /// resetDefaultFilterStepSize().
    int defaultFilterStepSize(int iRows);
    void resetDefaultFilterStepSize() { m_iDefaultFilterStepSize = 0; }

    // ---- geometry ---------------------------------------------------------------------------------------------
    /// The line that lies in the plane (dip, dip azimuth) at a pitch (degrees, 0 … 180, measured in the plane from
    /// the strike by the right-hand rule): its plunge 0 … 90 and azimuth [0, 360).
    static void plungeAndAzimuth(double& dPlunge, double& dAzimuth, const double& dDip, const double& dDipAzimuth,
                                 const double& dPitch);
    /// sPitchDirection is the compass letter or octant of the strike end from which the pitch (0 … 90) is measured.
    static void plungeAndAzimuth(double& dPlunge, double& dAzimuth, const double& dDip, const double& dDipAzimuth,
                                 const double& dPitch, const QString& sPitchDirection);
    /// The segment where a plane through the triangle's three vertices (x, y, value v) has the level: at most 2
    /// points, iCount 0 when it misses the triangle. Each array holds 3 values; the outputs hold at least 2.
    static void calculateIsoline(double* x, double* y, double* v, double dLevel, double* outX, double* outY,
                                 int& iCount);
    /// The part of the triangle with lower <= value < upper: a polygon of up to 5 points (outputs hold 6).
    static void calculatePolygon(double* x, double* y, double* v, double dLower, double dUpper, double* outX,
                                 double* outY, int& iCount);
    /// True when a point lies inside the polygon of this table's columns 0 and 1 (even-odd rule).
    bool pointInOrOut(const QPointF& oPoint) const;

    // ---- persistence and transfer -----------------------------------------------------------------------------
    /// Name, type, unit, colour, flags, columns and (recursively) children, with a version number. The form does not
    /// depend on the stream's version or byte order, which stay as they are.
    void putDataOnStream(QDataStream& stream) const;
    /// As above, but only the first iRecords records of each column.
    void putDataOnStream(int iRecords, QDataStream& stream) const;
    /// Replaces this node's contents; false (and nothing changed, the stream's status says so) when the stream holds
    /// something else or ends. The place in the tree, the owner link, the identifier and the undo list stay. An
    /// attribute takes the values of a streamed strike; an array or a strike takes only its own kind.
    bool getDataFromStream(QDataStream& stream);
    /// Reads a node written by putDataOnStream() and puts the first iRecords cells of its first column into column
    /// iColumn, converted to its type. False (and nothing changed) as above.
    bool getDataFromStream(int iRecords, int iColumn, QDataStream& stream);
    /// A new node of the kind (attribute, array, strike) that the stream holds; null as above.
    static std::unique_ptr<MatrixData> fromStream(QDataStream& stream, UnitRegistry* poRegistry = nullptr);
    /// An HTML table (and tab-separated text) of the attributes: a header line of names with units, then the given
    /// records (an empty list: all) in display units. Texts are escaped. The table shows each unit's decimals, the
    /// text all digits, so that pasting it back loses nothing. Data sets among the nodes are skipped.
    static void setHTML_MimeData(QMimeData* pMimeData, const std::vector<MatrixData*>& vpNodes,
                                 const std::vector<int>& viRecords);
    /// Writes the data sets below as comma-separated UTF-8 text with full precision in model units (the form is
    /// described in docs/csv-format.md), replacing the file atomically. pbRows: one flag per record, only flagged
    /// records are written, none beyond iRows; no flag set, or null, writes all. pbOk (may be null) tells success.
    void writeCSV(const QString& sPath, bool* pbOk, const bool* pbRows = nullptr, int iRows = 0) const;

    // ---- undo (kept at the root; on other nodes these speak to their root) ----------------------------------------
    /// Takes ownership. The record must hold what it restores before the edit is applied. bNewStep begins an undo
    /// step; false joins the step before it (or begins one when there is none). Drops the redo list.
    void appendUndoAction(MatrixDataRestore* poRecord, bool bNewStep);
    /// Records on the undo list.
    int sizeUndoActions() const;
    /// Null when out of range.
    MatrixDataRestore* undoAction(int i) const;
    bool canUndo() const;
    bool canRedo() const;
    QString undoText() const; ///< name of the step that undo() would take back
    QString redoText() const;
    bool undo();
    bool redo();
    /// Changes whenever an edit, an undo or a redo happens; equal numbers mean equal states (for the modified mark).
    int undoState() const;
    void clearUndoActions();

    // ---- chart support ------------------------------------------------------------------------------------------
    /// Fills the chooser of a chart with the entries that hold the attribute collection: one per data set, or one
    /// per attribute for the collections that say so (then "data set: attribute"). ids are globalID()s. The lists
    /// are emptied first. bSelectedOnly offers selected attributes only.
    void getDataSetSelectionBoxItems(QList<QString>& lNames, QList<int>& liIds, QList<QColor>& lColors,
                                     AttributeCollection eCollection, bool bSelectedOnly) const;
    /// The node of that identifier below this one, null when there is none (any more).
    MatrixData* nodeFromID(int iGlobalID) const;
    /// The dip (or plunge) and the azimuth attribute of a data set, null when it has none. Recognised by unit
    /// category "orientation" and name.
    MatrixData* dipAttribute() const;
    MatrixData* azimuthAttribute() const;
    MatrixData* depthAttribute() const;

    /// Announces changes below a root; made on first use. For any node: the notifier of its root.
    MatrixDataNotifier* notifier();

    /// Everything equal: kinds, names, types, units, colours, flags, cells bit for bit, children in order.
    /// Identifiers do not count.
    bool isIdenticalTo(const MatrixData& other) const;

    /// Heap memory of the cells of this node and the nodes below, in bytes.
    virtual std::size_t memoryUsage() const;

protected:
    enum class StreamKind : quint8
    {
        Attribute = 0,
        Strike = 1,
        Array = 2
    };
    using NodeMap = std::unordered_map<const MatrixData*, MatrixData*>;

    /// Called under setValue(): a class that keeps its cells elsewhere (strike, array) writes there and returns true.
    virtual bool writeDerived(int iRecord, int iColumn, const QVariant& qValue);
    /// The node whose columns hold the cells, for undo; null when there is none.
    virtual MatrixData* storageNode() { return this; }
    /// One cell and its number, without a detour over column().
    virtual QVariant cellValue(int iRecord, int iColumn) const;
    virtual double cellNumber(int iRecord, int iColumn) const;
    /// What only the derived class holds is equal; other has the same dynamic type.
    virtual bool hasEqualExtras(const MatrixData& other) const;
    /// After a branch was copied: links to nodes of the old branch are led to the new ones.
    virtual void relink(const NodeMap& nodes);
    virtual StreamKind streamKind() const { return StreamKind::Attribute; }
    /// What only the derived class holds, behind the columns and children of the node.
    virtual void writeExtras(QDataStream& stream, int iRecords) const;
    virtual bool readExtras(QDataStream& stream);
    /// Called once the siblings of a node that was read are there.
    virtual void resolveLinks(const std::vector<MatrixData*>& vpSiblings);
    /// Exchanges everything but the place in the tree, the owner link, the identifier, the registry and the undo list
    /// with a node of the same dynamic type that stands in no tree.
    virtual void swapContents(MatrixData& other);

    void copyProperties(const MatrixData& other);
    /// False for a node that was taken out of a tree, unless this one was taken out with it.
    bool isReachable(const MatrixData& node) const;
    /// While this node is a dependent of another, changes of the other's values are changes of its own.
    void addDependentTo(MatrixData& source);
    void removeDependentFrom(MatrixData& source);
    /// Something that the values depend on changed: as valuesChanged(), without a signal.
    void touch();

    void notifyAttributes();

private:
    friend class MatrixDataNotifier;
    friend class MatrixDataPointer;
    friend class MatrixDataRestore;
    friend struct MatrixDataStreamAccess;
    friend class MatrixDataUndoStack;

    struct ColumnRange;

    void copyColumns(const MatrixData& other);
    void copyChildren(const MatrixData& other);
    void ensureColumn(int iColumn, int iRecords);
    void resizeRecords(int iRecords);
    bool applyStep(bool (MatrixDataUndoStack::*pApply)());
    QVariant summaryValue(int iRow, int iColumn) const;
    std::vector<MatrixData*> dataSetsWithAttributes() const;
    void adoptChildren(MatrixData* poFormerParent);
    void touchBranchDependents();
    std::unique_ptr<MatrixData> detachChild(int iIndex);
    void attachChild(int iIndex, std::unique_ptr<MatrixData> poNode);
    MatrixDataNotifier* existingNotifier() const;
    MatrixDataUndoStack* existingUndoStack() const;
    void notifyStructure();
    std::shared_ptr<MatrixData*> handle() const;

    QString m_sName;
    QMetaType::Type m_eType;
    int m_iRowOffSet;
    int m_iGlobalIdOfNode;
    MatrixData* m_poParent = nullptr; ///< not owned: the node that owns this one
    MatrixDataPointer m_poOwner;      ///< not owned: the data set of an attribute
    std::vector<std::unique_ptr<MatrixData>> m_vChildren;
    std::vector<MatrixColumn> m_vColumns;
    QStringList m_lColumnHeaders;
    bool m_bSelected = false;
    bool m_bVertex = false;
    bool m_bEditable = true;
    QColor m_oColor;
    QVariant m_qDefaultValue1;
    double m_dDefaultValue2;
    int m_iDefaultFilterStepSize = 0;
    UnitRegistry* m_poRegistry = nullptr; ///< not owned
    boost::shared_ptr<UnitManager> m_poUnitManager;
    std::unique_ptr<MatrixDataUndoStack> m_poUndoStack;
    std::unique_ptr<MatrixDataNotifier> m_poNotifier;
    std::vector<MatrixData*> m_vDependents; ///< not owned: attributes derived from this one, they sign off themselves
    quint64 m_iRevision = 0;
    bool m_bDetached = false;                       ///< taken out of a tree
    mutable std::shared_ptr<MatrixData*> m_pHandle; ///< made for the first MatrixDataPointer
    mutable std::vector<ColumnRange> m_vRanges;     ///< cached minimum, mean and maximum per column
};

} // namespace gkBase
