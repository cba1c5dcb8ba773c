#pragma once

#include "gkBaseQtExport.h"

#include <QColor>

#include <map>
#include <utility>

/// A colour scale: rising levels, each with the colour of the band that ends there and of the band that begins.
class GKBASEQT_EXPORT GKColormap
{
public:
    enum Interpolation
    {
        Linear,
        Stepwise
    };
    using LevelMap = std::map<double, std::pair<QColor, QColor>>;
    using const_iterator = LevelMap::const_iterator;

    GKColormap() = default;

    /// Levels from min to max in steps of interval (the last step may be shorter), coloured through the spectrum
    /// from blue over green and yellow to red, or from red to blue. The band that begins at level i of n has the
    /// colour i / (n − 1) of the spectrum, so that the last colour belongs to the maximum itself. An interval not
    /// above 0, NaN, 99999.0 (automatic), or one that asks for more than 1000 levels is replaced by range / 19 (20
    /// levels); min not below max leaves one level; an infinite or missing bound leaves the map empty.
    void fill_spectrum_color_list(double min, double max, double interval, bool bRedToBlue);
    void interpolation(Interpolation eInterpolation) { m_eInterpolation = eInterpolation; }
    Interpolation interpolation() const { return m_eInterpolation; }
    /// Linear: blended between the levels around the value; stepwise: the colour of its band. The colours of the
    /// ends outside the range; an invalid colour for NaN and 99999.0 or an empty map.
    QColor value_to_color(double dValue) const;
    /// The spectrum's colour at 0 (blue) … 1 (red); clamped outside.
    static QColor spectrumColor(double dFraction);
    /// A copy; the caller owns it.
    GKColormap* clone() const { return new GKColormap(*this); }

    const_iterator begin() const { return m_levels.begin(); }
    const_iterator end() const { return m_levels.end(); }
    bool empty() const { return m_levels.empty(); }
    std::size_t size() const { return m_levels.size(); }
    void insert(double dLevel, const QColor& oLower, const QColor& oUpper) { m_levels[dLevel] = {oLower, oUpper}; }

private:
    LevelMap m_levels;
    Interpolation m_eInterpolation = Linear;
};
