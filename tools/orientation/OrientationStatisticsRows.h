#pragma once

#include "OrientationStatistics.h"
#include "OrientationText.h"
#include "gkBaseToolsExport.h"

#include <QString>

#include <vector>

namespace gkBase {

/// A statistic as panels and reports show it.
struct OrientationStatisticsRow
{
    QString m_sGroup; ///< rows of a group follow each other
    QString m_sLabel;
    QString m_sValue;        ///< "---" for what is undefined; may have two lines
    QString m_sToolTip;      ///< what it is and its unit or, for an undefined one, why it is
    bool m_bWarning = false; ///< a hint that takes the whole width: the value is a sentence
    QString m_sReason;       ///< why there is no number, or why it misleads; the last line of the tool tip
};

/// What the records of these statistics are: "Poles of Planes", "Lines" or, for lines of a data set of planes, "Dip
/// Lines".
GKBASETOOLS_EXPORT QString orientationStatisticsTitle(const OrientationStatistics& oStatistics, bool bOfPlanes);

/// All that is said about a set of records, ready to be shown. Numbers have a fixed number of decimals; what the
/// records leave undefined, or open (an axis of equal eigenvalues), is "---" with the reason as its tool tip.
/// bWeighted: the records were weighted, and their effective number is shown.
GKBASETOOLS_EXPORT std::vector<OrientationStatisticsRow>
orientationStatisticsRows(const OrientationStatistics& oStatistics, bool bWeighted, OrientationConvention eConvention);

/// Rows as a table of labels and values, separated by tabs, one row a line, groups under their names. Line breaks in
/// values become blanks.
GKBASETOOLS_EXPORT QString tabSeparatedText(const std::vector<OrientationStatisticsRow>& vRows);

} // namespace gkBase
