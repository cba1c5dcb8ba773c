#pragma once

#include "DepthLineField.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QString>

namespace gkBase {

/// Names and colours of the lines that a click in the dipmeter window makes. Horizons and faults are numbered from 0;
/// planes share one name, because their type tells what they are.
class GKBASETOOLS_EXPORT ScatLineDefaults
{
public:
    /// Numbers from 0 again, for a new scenario.
    void restart();
    /// "Dummy", "Horizon_0", "Fault0" …; the next call for a horizon or fault gives the next number. Numbers that lines
    /// of the scenario have already, because they were read from a file, are passed over. Null: no lines.
    QString nextName(DepthLineField::DataType eType, const DepthLineField* pLines = nullptr);
    /// Horizons take the data library's next default colour; other types have one each.
    static QColor nextColor(DepthLineField::DataType eType);

private:
    static QString nextFree(const QString& sPattern, int& iNumber, const DepthLineField* pLines);

    int m_iHorizons = 0;
    int m_iFaults = 0;
};

} // namespace gkBase
