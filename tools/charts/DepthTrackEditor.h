#pragma once

#include "DepthTrack.h"
#include "MatrixDataPointer.h"

#include <QString>
#include <QWidget>

#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;

namespace gkBase {

class MatrixData;
class QUnitLineEdit;

/// The list of a depth plot's tracks and the looks of the chosen one. It holds a copy of the tracks and reports every
/// edit of the user; setTracks() emits nothing.
class DepthTrackEditor : public QWidget
{
    Q_OBJECT
public:
    /// An attribute that can become a track.
    struct Offer
    {
        QString m_sName;
        MatrixDataPointer m_poNode;
    };

    explicit DepthTrackEditor(QWidget* pqParent = nullptr);

    /// Attributes for new tracks and for the quality of tadpoles; dip and azimuth for a new tadpole track, null when
    /// the data set has none.
    void setOffers(std::vector<Offer> vOffers, MatrixData* poDip, MatrixData* poAzimuth);
    /// The current track stays current where it can.
    void setTracks(const std::vector<DepthTrack>& vTracks);
    const std::vector<DepthTrack>& tracks() const { return m_vTracks; }
    void setCurrentTrack(int iTrack);
    int currentTrack() const;
    /// Shows limits again after a change of display units.
    void showCurrentTrack();

signals:
    /// Tracks were added, removed or put in another order.
    void tracksEdited();
    /// The looks of one track changed.
    void trackEdited(int iTrack);
    void currentTrackChanged(int iTrack);

private:
    QWidget* createList();
    QWidget* createLooks();
    QWidget* createTadpoleRow();
    void nameControls();
    void connectControls();
    void fillList();
    void fillQualityBox();
    void slotAdd();
    void slotRemove();
    void slotMove(int iStep);
    void slotRowsMoved();
    void slotColor();
    void slotLimitEdited();
    void slotLooksEdited();
    void changeTracks(std::vector<DepthTrack> vTracks, int iCurrent);
    void showColor();

    std::vector<DepthTrack> m_vTracks;
    std::vector<Offer> m_vOffers;
    MatrixDataPointer m_poDip;
    MatrixDataPointer m_poAzimuth;

    QListWidget* m_pqList = nullptr;
    QComboBox* m_pqAddBox = nullptr;
    QPushButton* m_pqAddButton = nullptr;
    QPushButton* m_pqRemoveButton = nullptr;
    QPushButton* m_pqUpButton = nullptr;
    QPushButton* m_pqDownButton = nullptr;
    QGroupBox* m_pqLooks = nullptr;
    QCheckBox* m_pqLine = nullptr;
    QSpinBox* m_pqLineWidth = nullptr;
    QCheckBox* m_pqPoints = nullptr;
    QSpinBox* m_pqPointSize = nullptr;
    QPushButton* m_pqColorButton = nullptr;
    QCheckBox* m_pqAutomatic = nullptr;
    QUnitLineEdit* m_pqMinimum = nullptr;
    QUnitLineEdit* m_pqMaximum = nullptr;
    QCheckBox* m_pqReversed = nullptr;
    QWidget* m_pqTadpoleRow = nullptr;
    QComboBox* m_pqQuality = nullptr;
    QUnitLineEdit* m_pqMinimumQuality = nullptr;
};

} // namespace gkBase
