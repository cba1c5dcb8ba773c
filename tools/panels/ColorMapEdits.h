#pragma once

#include "RelationshipClasses.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

namespace gkBase {

class MatrixData;
class QUnitLineEdit;

/// The range and the interval of the bands of a colour attribute, in its display unit. Empty fields take what suits the
/// values.
class GKBASETOOLS_EXPORT ColorMapEdits : public QWidget
{
    Q_OBJECT
public:
    /// sNotSet stands in the empty fields.
    ColorMapEdits(const QString& sIntervalName, const QString& sNotSet, QWidget* pqParent = nullptr);

    /// In model units; the direction of the colours is not edited here.
    RelationshipClasses::ColorMap colorMap() const;
    /// Emits nothing.
    void setColorMap(const RelationshipClasses::ColorMap& map);
    /// Another attribute, or null, empties the fields; another unit of the same one changes what they show. Emits
    /// nothing.
    void setAttribute(const MatrixData* poAttribute);

signals:
    void edited();

private:
    QUnitLineEdit* newEdit(const QString& sName, const QString& sNotSet, const char* pObjectName);

    QUnitLineEdit* m_pqMinEdit;
    QUnitLineEdit* m_pqMaxEdit;
    QUnitLineEdit* m_pqIntervalEdit;
    int m_iAttribute = -1; ///< globalID() of the attribute whose bands are shown
    double m_dDisplayScale = 1.0;
};

} // namespace gkBase
