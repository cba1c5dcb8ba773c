#pragma once

#include "DepthLineField.h"
#include "gkBaseToolsExport.h"

#include <QGroupBox>

#include <optional>

class QButtonGroup;
class QLabel;

namespace gkBase {

/// What a click on a track creates, and what the mouse does while a line gets its orientation.
class GKBASETOOLS_EXPORT ScatCreationGroup : public QGroupBox
{
    Q_OBJECT
public:
    explicit ScatCreationGroup(QWidget* pqParent = nullptr);

    /// Nothing for "None".
    std::optional<DepthLineField::DataType> type() const;
    /// Shows that selected records give the picked lines their orientation.
    void showOrientationMode(bool bOn);

signals:
    void typeChosen();

private:
    QButtonGroup* m_pqTypes;
    QLabel* m_pqOrientationLabel;
};

} // namespace gkBase
