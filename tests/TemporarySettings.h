#pragma once

#include <QCoreApplication>
#include <QSettings>
#include <QString>

namespace gkTest {

/// Settings of the test program go into sFolder, never into those of the user. Call it before the first QSettings.
inline void useTemporarySettings(const QString& sFolder, const QString& sProgram)
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, sFolder);
    QCoreApplication::setOrganizationName(QStringLiteral("test"));
    QCoreApplication::setApplicationName(sProgram);
}

} // namespace gkTest
