#include "UnitConverter.h"

#include "UnitCatalogue.h"

#include <QByteArray>
#include <QHash>

#include <udunits2.h>

namespace gkBase {

namespace {

struct UnitDeleter
{
    void operator()(ut_unit* pUnit) const { ut_free(pUnit); }
};
using Unit = std::unique_ptr<ut_unit, UnitDeleter>;

/// The unit database, read once; null when it cannot be read.
ut_system* unitSystem()
{
    struct System
    {
        System()
        {
            ut_set_error_message_handler(ut_ignore);
            pSystem = ut_read_xml(nullptr);
        }
        ~System() { ut_free_system(pSystem); }
        ut_system* pSystem = nullptr;
    };
    static const System theSystem;
    return theSystem.pSystem;
}

Unit parse(const QString& sExpression)
{
    ut_system* pSystem = unitSystem();
    if (!pSystem || sExpression.isEmpty())
        return nullptr;
    return Unit(ut_parse(pSystem, sExpression.toUtf8().constData(), UT_UTF8));
}

/// True when the quotient of the units is a pure number (a reciprocal dimension is another one).
bool sameDimension(const ut_unit* pA, const ut_unit* pB)
{
    if (!pA || !pB)
        return false;
    const Unit quotient(ut_divide(pA, pB));
    return quotient && ut_is_dimensionless(quotient.get());
}

QString expressionOf(const QString& sUnit)
{
    const UnitEntry* pEntry = UnitCatalogue::find(sUnit);
    return pEntry ? pEntry->sExpression : UnitCatalogue::normalised(sUnit);
}

/// The kind of a unit that only the library knows. Pure numbers have none: "1" is neither angle nor fraction.
QString kindByDimension(const QString& sUnit)
{
    const Unit unit = parse(UnitCatalogue::normalised(sUnit));
    if (!unit || ut_is_dimensionless(unit.get()))
        return QString();
    const QStringList lKinds = UnitCatalogue::kinds();
    for (const QString& sKind : lKinds) {
        const Unit standard = parse(expressionOf(UnitCatalogue::defaultUnit(sKind)));
        if (standard && !ut_is_dimensionless(standard.get()) && sameDimension(unit.get(), standard.get()))
            return sKind;
    }
    return QString();
}

} // namespace

std::unique_ptr<UnitConverter> UnitConverter::create(const QString& sFromUnit, const QString& sToUnit)
{
    const UnitEntry* pFrom = UnitCatalogue::find(sFromUnit);
    const bool bSame = sFromUnit == sToUnit || (pFrom && pFrom == UnitCatalogue::find(sToUnit));
    if (bSame)
        return std::unique_ptr<UnitConverter>(new UnitConverter);
    const QString sKind = kind(sFromUnit);
    if (sKind.isEmpty() || sKind != kind(sToUnit))
        return nullptr;
    const Unit from = parse(expressionOf(sFromUnit));
    const Unit to = parse(expressionOf(sToUnit));
    if (!sameDimension(from.get(), to.get()))
        return nullptr;
    std::unique_ptr<UnitConverter> poConverter(new UnitConverter);
    poConverter->m_pForward = ut_get_converter(from.get(), to.get());
    poConverter->m_pBackward = ut_get_converter(to.get(), from.get());
    if (!poConverter->m_pForward || !poConverter->m_pBackward)
        return nullptr;
    return poConverter;
}

UnitConverter::~UnitConverter()
{
    if (m_pForward)
        cv_free(m_pForward);
    if (m_pBackward)
        cv_free(m_pBackward);
}

double UnitConverter::forward(double dValue) const
{
    return m_pForward ? cv_convert_double(m_pForward, dValue) : dValue;
}

double UnitConverter::backward(double dValue) const
{
    return m_pBackward ? cv_convert_double(m_pBackward, dValue) : dValue;
}

QString UnitConverter::kind(const QString& sUnit)
{
    if (const UnitEntry* pEntry = UnitCatalogue::find(sUnit))
        return pEntry->sKind;
    static QHash<QString, QString> theKinds; // parsing is slow and imports ask for every column
    const auto it = theKinds.constFind(sUnit);
    return it != theKinds.cend() ? it.value() : *theKinds.insert(sUnit, kindByDimension(sUnit));
}

} // namespace gkBase
