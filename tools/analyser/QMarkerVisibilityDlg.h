#pragma once

#include "gkBaseToolsExport.h"

#include <QDialog>
#include <QString>

class QCheckBox;
class QDialogButtonBox;
class QGroupBox;
class QRadioButton;

namespace gkBase {

/// Asks which markers of the depth plot to show or hide: all of them, or those of chosen types.
class GKBASETOOLS_EXPORT QMarkerVisibilityDlg : public QDialog
{
    Q_OBJECT
public:
    /// sName is what the markers are those of (a well); it stands in the title, and may be empty. bVisible tells
    /// whether markers are shown now: the dialog proposes the opposite, for all markers. No type is chosen at first.
    explicit QMarkerVisibilityDlg(const QString& sName, const bool& bVisible, QWidget* pqParent = nullptr,
                                  Qt::WindowFlags eFlags = Qt::WindowFlags());

    /// All markers; the types do not count then.
    bool allMarkers() const;
    /// The boxes of the types.
    bool scatMarkers() const;
    bool decimatedDipAzimuthMarkers() const;
    bool topMarkers() const;
    bool faultMarkers() const;
    /// True: show them.
    bool visibilityValue() const;

private slots:
    void slotEnableMarkerTypes(int iState);
    void slotEnableAllMarkers(bool bOn);

private:
    QCheckBox* newTypeBox(const QString& sText, const char* pcName);
    QGroupBox* newVisibilityBox(bool bOn);
    /// Without a type there is nothing to apply.
    void enableOk();

    QCheckBox* m_pqAll;
    QGroupBox* m_pqTypes;
    QCheckBox* m_pqScat;
    QCheckBox* m_pqDecimated;
    QCheckBox* m_pqTops;
    QCheckBox* m_pqFaults;
    QRadioButton* m_pqOn = nullptr;
    QDialogButtonBox* m_pqButtons;
};

} // namespace gkBase
