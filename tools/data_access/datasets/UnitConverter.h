#pragma once

#include <QString>
#include <QStringList>

#include <memory>

union cv_converter;

namespace gkBase {

/// Conversion of values between two units. The one place that knows the UDUNITS-2 library; when its database is
/// missing, every conversion between different units is refused and values stay as they are.
///
/// Units convert only inside one kind: an angle is no fraction although both are pure numbers, and a slowness is
/// not turned into a velocity, since a reciprocal would swap minima and maxima.
class UnitConverter
{
public:
    /// Null when the units are of different kinds or one of them is not known; a pair of spellings of one unit
    /// gives an identity. sToUnit is kept as toUnit().
    static std::unique_ptr<UnitConverter> create(const QString& sFromUnit, const QString& sToUnit);
    ~UnitConverter();
    UnitConverter(const UnitConverter&) = delete;
    UnitConverter& operator=(const UnitConverter&) = delete;

    bool isIdentity() const { return !m_pForward; }
    double forward(double dValue) const;
    double backward(double dValue) const;

    /// The kind of a unit, listed in the catalogue or only known to the library; empty for any other text.
    static QString kind(const QString& sUnit);

private:
    UnitConverter() = default;

    cv_converter* m_pForward = nullptr;
    cv_converter* m_pBackward = nullptr;
};

} // namespace gkBase
