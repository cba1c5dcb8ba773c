#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

namespace gkTest {

/// A base of test classes that write and read files in a folder of their own.
class TestFolder
{
protected:
    QString path(const char* pName) const { return m_folder.filePath(QLatin1String(pName)); }

    /// Empty for a file that cannot be read.
    static QByteArray content(const QString& sFile)
    {
        QFile file(sFile);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void write(const char* pName, const QByteArray& qContent) const
    {
        QFile file(path(pName));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(qContent);
    }

    QTemporaryDir m_folder;
};

} // namespace gkTest
