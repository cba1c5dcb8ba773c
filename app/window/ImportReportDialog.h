#pragma once

#include "ImportReport.h"

#include <QDialog>

#include <vector>

class QComboBox;
class QPlainTextEdit;

namespace gkHost {

/// The reports of the files that were opened, newest first, with a button that saves them as text.
class ImportReportDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ImportReportDialog(const std::vector<ImportReport>& vReports, QWidget* pqParent = nullptr);

private:
    void save();

    std::vector<ImportReport> m_vReports; ///< newest first
    QComboBox* m_pqFiles;
    QPlainTextEdit* m_pqText;
};

} // namespace gkHost
