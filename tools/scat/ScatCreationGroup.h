#pragma once

#include "DepthLineField.h"
#include "gkBaseToolsExport.h"

#include <QGroupBox>

#include <optional>

class QButtonGroup;

namespace gkBase {

/// What a click on a track creates.
class GKBASETOOLS_EXPORT ScatCreationGroup : public QGroupBox
{
    Q_OBJECT
public:
    explicit ScatCreationGroup(QWidget* pqParent = nullptr);

    /// Nothing for "None".
    std::optional<DepthLineField::DataType> type() const;

signals:
    void typeChosen();

private:
    void layOut();

    QButtonGroup* m_pqTypes;
};

} // namespace gkBase
