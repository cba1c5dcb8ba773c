#pragma once

#include <QDialog>

namespace gkHost {

/// Explains how the program measures and writes angles.
class AnglesDialog : public QDialog
{
    Q_OBJECT
public:
    explicit AnglesDialog(QWidget* pqParent = nullptr);
};

} // namespace gkHost
