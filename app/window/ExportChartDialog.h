#pragma once

#include <QDialog>
#include <QSize>

class QSpinBox;

namespace gkHost {

/// Asks for the size of an exported chart.
class ExportChartDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ExportChartDialog(QWidget* pqParent = nullptr);

    /// Logical pixels (1/96 inch in SVG, PDF and EMF).
    QSize chartSize() const;

private:
    QSpinBox* m_pqWidth;
    QSpinBox* m_pqHeight;
};

} // namespace gkHost
