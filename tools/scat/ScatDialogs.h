#pragma once

#include "gkBaseToolsExport.h"

#include <QMessageBox>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace gkBase {

/// What the dipmeter window asks and tells its user. A host, or a test, may put its own dialogs in place of these;
/// each function must be set.
struct GKBASETOOLS_EXPORT ScatDialogs
{
    using Answer = QMessageBox::StandardButton;

    /// A question with the buttons Yes, No and Cancel.
    std::function<Answer(QWidget* pqParent, const QString& sTitle, const QString& sText)> m_fnAsk;
    /// Tells of something that went wrong.
    std::function<void(QWidget* pqParent, const QString& sTitle, const QString& sText)> m_fnWarn;
    /// The file to write a scenario to; empty when the user cancelled.
    std::function<QString(QWidget* pqParent, const QString& sDirectory, const QString& sProposedName)> m_fnSaveFile;
    /// The files to read scenarios from; empty when the user cancelled.
    std::function<QStringList(QWidget* pqParent, const QString& sDirectory)> m_fnOpenFiles;

    /// The dialogs of the desktop.
    static ScatDialogs standard();
};

} // namespace gkBase
