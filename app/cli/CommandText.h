#pragma once

#include <QCoreApplication>
#include <QString>

namespace gkHost {

/// A text of the commands in the user's language.
inline QString text(const char* pText)
{
    return QCoreApplication::translate("CommandLine", pText);
}

} // namespace gkHost
