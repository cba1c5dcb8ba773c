#pragma once

#include "ImportOptions.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace gkHost {

/// What the user wants to decide about text files instead of leaving it to detection.
class ImportOptionsDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ImportOptionsDialog(QWidget* pqParent = nullptr);

    ImportOptions options() const;

private:
    QComboBox* m_pqEncoding;
    QComboBox* m_pqDelimiter;
    QComboBox* m_pqDecimalMark;
    QComboBox* m_pqHeaderLine;
    QComboBox* m_pqUnitsLine;
    QLineEdit* m_pqMissing;
    QCheckBox* m_pqDetectMissing;
};

} // namespace gkHost
