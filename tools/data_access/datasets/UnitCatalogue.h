#pragma once

#include <QString>
#include <QStringList>

namespace gkBase {

/// A unit of the field: what files call it, how it is shown and how a conversion library reads it.
struct UnitEntry
{
    QString sKind;       ///< category of values in this unit ("length", "slowness"); empty: known, but no category
    QString sTag;        ///< as shown behind numbers: "m", "°", "µs/ft"
    QString sName;       ///< readable: "metre"
    QString sExpression; ///< for the conversion library; empty when the unit converts to itself only
    int iPrecision = 3;  ///< decimals to show
};

/// The units that geological data files use, with their many spellings, and the standard categories.
class UnitCatalogue
{
public:
    /// The unit that a text means; null for a text that is not listed. Spellings are compared without case, except
    /// for the few where case tells two units apart (mPa and MPa, mS and MS).
    static const UnitEntry* find(const QString& sText);
    /// The text as the comparison sees it: ASCII letters for µ, °, ² and ³, single blanks, none around "/".
    static QString normalised(const QString& sText);
    /// Tags of the units of a kind, the default unit first.
    static QStringList tagsOfKind(const QString& sKind);
    static QStringList kinds();

    /// The standard categories. A depth is a length of its own category.
    static QStringList categories();
    /// The kind of unit that values of a category have: "length" for "depth", otherwise the category itself.
    static QString kindOfCategory(const QString& sCategory);
    /// The model unit that a category uses when the data name none: "m", "deg"; empty for "dimensionless".
    static QString defaultUnit(const QString& sCategory);
};

} // namespace gkBase
