#pragma once

#include <QComboBox>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace gkTest {

/// The texts that a combo box of that object name offers.
inline QStringList entries(const QWidget& panel, const char* pName)
{
    const auto* pqBox = panel.findChild<QComboBox*>(QLatin1String(pName));
    QStringList lTexts;
    for (int i = 0; i < pqBox->count(); ++i)
        lTexts << pqBox->itemText(i);
    return lTexts;
}

/// Chooses an entry as a user does.
inline void pick(const QWidget& panel, const char* pName, const QString& sEntry)
{
    auto* pqBox = panel.findChild<QComboBox*>(QLatin1String(pName));
    pqBox->setCurrentIndex(pqBox->findText(sEntry));
    emit pqBox->activated(pqBox->currentIndex());
}

} // namespace gkTest
