#pragma once

#include <QString>

#include <functional>

class QPrinter;
class QSize;
class QWidget;

namespace gkHost {

/// How the windows of the program put a chart into a file or on paper: they ask, and tell what went wrong.
namespace ChartOutput {

/// The path with that extension, when it has none. An empty path stays empty.
QString withExtension(const QString& sPath, const QString& sExtension);

/// Asks for size and file, proposing sStart, and calls fnWrite(path, size, error). The path that was written; empty
/// when the user cancelled or the file could not be written.
QString write(QWidget* pqParent, const QString& sStart,
              const std::function<bool(const QString&, const QSize&, QString*)>& fnWrite);

/// Shows the print preview of what fnPrint draws.
void print(QWidget* pqParent, const QString& sName, const std::function<void(QPrinter&)>& fnPrint);

} // namespace ChartOutput

} // namespace gkHost
