#include "DepthTrackEditor.h"

#include "MatrixData.h"
#include "MissingValue.h"
#include "QUnitLineEdit.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

constexpr int g_iListRows = 5;
constexpr int g_iSwatch = 12;
constexpr int g_iTadpoleOffer = -1; ///< item data of the chooser's entry for tadpoles
constexpr int g_iShortestEdit = 40;

QPixmap swatch(const QColor& oColor, const QWidget& widget)
{
    const qreal dRatio = widget.devicePixelRatioF();
    QPixmap oPixmap(QSize(g_iSwatch, g_iSwatch) * dRatio);
    oPixmap.setDevicePixelRatio(dRatio);
    oPixmap.fill(oColor);
    return oPixmap;
}

QComboBox* newBox(const QString& sName)
{
    auto* pqBox = new QComboBox;
    pqBox->setAccessibleName(sName);
    pqBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    pqBox->setMinimumContentsLength(8);
    return pqBox;
}

QSpinBox* newPixelBox(int iMaximum, const QString& sName)
{
    auto* pqBox = new QSpinBox;
    pqBox->setRange(1, iMaximum);
    pqBox->setSuffix(DepthTrackEditor::tr(" px"));
    pqBox->setAccessibleName(sName);
    return pqBox;
}

QUnitLineEdit* newEdit(const QString& sName)
{
    auto* pqEdit = new QUnitLineEdit;
    pqEdit->setAccessibleName(sName);
    pqEdit->setToolTip(sName);
    pqEdit->setMinimumWidth(g_iShortestEdit);
    return pqEdit;
}

} // namespace

DepthTrackEditor::DepthTrackEditor(QWidget* pqParent)
    : QWidget(pqParent)
{
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(createList());
    pqLayout->addWidget(createLooks());
    pqLayout->addStretch(1);
    nameControls();
    connectControls();
    showCurrentTrack();
}

QWidget* DepthTrackEditor::createList()
{
    auto* pqPart = new QWidget;
    m_pqList = new QListWidget;
    m_pqList->setAccessibleName(tr("Tracks"));
    m_pqList->setToolTip(tr("The tracks from left to right; drag them into another order"));
    m_pqList->setDragDropMode(QAbstractItemView::InternalMove);
    m_pqList->setFixedHeight(g_iListRows * (m_pqList->fontMetrics().height() + 4));
    m_pqAddBox = newBox(tr("Attribute of the new track"));
    m_pqAddButton = new QPushButton(tr("Add"));
    m_pqAddButton->setToolTip(tr("Add a track of this attribute"));
    m_pqRemoveButton = new QPushButton(tr("Remove"));
    m_pqUpButton = new QPushButton(QStringLiteral("\u25b2"));
    m_pqUpButton->setAccessibleName(tr("To the left"));
    m_pqUpButton->setToolTip(tr("Move the track to the left"));
    m_pqDownButton = new QPushButton(QStringLiteral("\u25bc"));
    m_pqDownButton->setAccessibleName(tr("To the right"));
    m_pqDownButton->setToolTip(tr("Move the track to the right"));
    auto* pqGrid = new QGridLayout(pqPart);
    pqGrid->setContentsMargins(0, 0, 0, 0);
    pqGrid->addWidget(m_pqList, 0, 0, 1, 3);
    pqGrid->addWidget(m_pqRemoveButton, 1, 0);
    pqGrid->addWidget(m_pqUpButton, 1, 1);
    pqGrid->addWidget(m_pqDownButton, 1, 2);
    pqGrid->addWidget(m_pqAddBox, 2, 0, 1, 2);
    pqGrid->addWidget(m_pqAddButton, 2, 2);
    for (QPushButton* pqButton : {m_pqAddButton, m_pqRemoveButton, m_pqUpButton, m_pqDownButton})
        pqButton->setMinimumWidth(30);
    return pqPart;
}

QWidget* DepthTrackEditor::createLooks()
{
    m_pqLooks = new QGroupBox;
    m_pqLine = new QCheckBox(tr("Line"));
    m_pqLineWidth = newPixelBox(10, tr("Line Width"));
    m_pqPoints = new QCheckBox(tr("Points"));
    m_pqPointSize = newPixelBox(20, tr("Point Size"));
    m_pqColorButton = new QPushButton(tr("Color..."));
    m_pqAutomatic = new QCheckBox(tr("Automatic limits"));
    m_pqMinimum = newEdit(tr("Lower limit of the track"));
    m_pqMaximum = newEdit(tr("Upper limit of the track"));
    m_pqReversed = new QCheckBox(tr("Reversed"));
    m_pqReversed->setToolTip(tr("The larger values stand at the left"));
    m_pqTadpoleRow = createTadpoleRow();
    auto* pqGrid = new QGridLayout(m_pqLooks);
    pqGrid->addWidget(m_pqLine, 0, 0);
    pqGrid->addWidget(m_pqLineWidth, 0, 1);
    pqGrid->addWidget(m_pqPoints, 1, 0);
    pqGrid->addWidget(m_pqPointSize, 1, 1);
    pqGrid->addWidget(m_pqColorButton, 2, 0, 1, 2);
    pqGrid->addWidget(m_pqAutomatic, 3, 0, 1, 2);
    pqGrid->addWidget(m_pqMinimum, 4, 0);
    pqGrid->addWidget(m_pqMaximum, 4, 1);
    pqGrid->addWidget(m_pqReversed, 5, 0, 1, 2);
    pqGrid->addWidget(m_pqTadpoleRow, 6, 0, 1, 2);
    return m_pqLooks;
}

QWidget* DepthTrackEditor::createTadpoleRow()
{
    auto* pqRow = new QWidget;
    m_pqQuality = newBox(tr("Quality of the tadpoles"));
    m_pqQuality->setToolTip(tr("Tadpoles of a lower quality have open heads"));
    m_pqMinimumQuality = newEdit(tr("Least quality of filled heads"));
    auto* pqGrid = new QGridLayout(pqRow);
    pqGrid->setContentsMargins(0, 0, 0, 0);
    pqGrid->addWidget(new QLabel(tr("Quality")), 0, 0);
    pqGrid->addWidget(m_pqQuality, 0, 1);
    pqGrid->addWidget(new QLabel(tr("Minimum")), 1, 0);
    pqGrid->addWidget(m_pqMinimumQuality, 1, 1);
    pqGrid->setColumnStretch(1, 1);
    return pqRow;
}

/// Style sheets and scripts find the controls by these names.
void DepthTrackEditor::nameControls()
{
    const std::pair<QWidget*, const char*> controls[] = {{m_pqList, "m_pqTrackList"},
                                                         {m_pqAddBox, "m_pqAddBox"},
                                                         {m_pqAddButton, "m_pqAddButton"},
                                                         {m_pqRemoveButton, "m_pqRemoveButton"},
                                                         {m_pqUpButton, "m_pqUpButton"},
                                                         {m_pqDownButton, "m_pqDownButton"},
                                                         {m_pqLine, "m_pqLine"},
                                                         {m_pqLineWidth, "m_pqLineWidth"},
                                                         {m_pqPoints, "m_pqPoints"},
                                                         {m_pqPointSize, "m_pqPointSize"},
                                                         {m_pqColorButton, "m_pqColorButton"},
                                                         {m_pqAutomatic, "m_pqAutomatic"},
                                                         {m_pqMinimum, "m_pqMinimum"},
                                                         {m_pqMaximum, "m_pqMaximum"},
                                                         {m_pqReversed, "m_pqReversed"},
                                                         {m_pqQuality, "m_pqQuality"},
                                                         {m_pqMinimumQuality, "m_pqMinimumQuality"}};
    for (const auto& [pqControl, pName] : controls)
        pqControl->setObjectName(QLatin1String(pName));
}

void DepthTrackEditor::connectControls()
{
    using Editor = DepthTrackEditor;
    connect(m_pqAddButton, &QPushButton::clicked, this, &Editor::slotAdd);
    connect(m_pqRemoveButton, &QPushButton::clicked, this, &Editor::slotRemove);
    connect(m_pqUpButton, &QPushButton::clicked, this, [this] { slotMove(-1); });
    connect(m_pqDownButton, &QPushButton::clicked, this, [this] { slotMove(1); });
    connect(m_pqColorButton, &QPushButton::clicked, this, &Editor::slotColor);
    connect(m_pqList, &QListWidget::currentRowChanged, this, [this](int iRow) {
        showCurrentTrack();
        emit currentTrackChanged(iRow);
    });
    connect(m_pqList->model(), &QAbstractItemModel::rowsMoved, this, &Editor::slotRowsMoved);
    for (QCheckBox* pqBox : {m_pqLine, m_pqPoints, m_pqAutomatic, m_pqReversed})
        connect(pqBox, &QCheckBox::clicked, this, &Editor::slotLooksEdited);
    for (QSpinBox* pqBox : {m_pqLineWidth, m_pqPointSize})
        connect(pqBox, &QSpinBox::valueChanged, this, &Editor::slotLooksEdited);
    for (QUnitLineEdit* pqEdit : {m_pqMinimum, m_pqMaximum})
        connect(pqEdit, &QUnitLineEdit::modelValueChanged, this, &Editor::slotLimitEdited);
    connect(m_pqQuality, &QComboBox::activated, this, &Editor::slotLooksEdited);
    connect(m_pqMinimumQuality, &QUnitLineEdit::modelValueChanged, this, &Editor::slotLooksEdited);
}

// ---- what is offered and shown --------------------------------------------------------------------------------------

void DepthTrackEditor::setOffers(std::vector<Offer> vOffers, MatrixData* poDip, MatrixData* poAzimuth)
{
    m_vOffers = std::move(vOffers);
    m_poDip = MatrixDataPointer(poDip);
    m_poAzimuth = MatrixDataPointer(poAzimuth);
    m_pqAddBox->clear();
    if (poDip && poAzimuth)
        m_pqAddBox->addItem(tr("Tadpoles"), g_iTadpoleOffer);
    for (std::size_t i = 0; i < m_vOffers.size(); ++i)
        m_pqAddBox->addItem(m_vOffers[i].m_sName, static_cast<int>(i));
    m_pqAddButton->setEnabled(m_pqAddBox->count() > 0);
    fillQualityBox();
    showCurrentTrack();
}

void DepthTrackEditor::fillQualityBox()
{
    m_pqQuality->clear();
    m_pqQuality->addItem(tr("None"), -1);
    for (std::size_t i = 0; i < m_vOffers.size(); ++i)
        m_pqQuality->addItem(m_vOffers[i].m_sName, static_cast<int>(i));
}

void DepthTrackEditor::setTracks(const std::vector<DepthTrack>& vTracks)
{
    const int iCurrent = currentTrack();
    m_vTracks = vTracks;
    fillList();
    setCurrentTrack(std::clamp(iCurrent, 0, static_cast<int>(m_vTracks.size()) - 1));
}

void DepthTrackEditor::fillList()
{
    const QSignalBlocker blocker(m_pqList);
    m_pqList->clear();
    for (std::size_t i = 0; i < m_vTracks.size(); ++i) {
        const QString sName = m_vTracks[i].name();
        auto* pqItem = new QListWidgetItem(swatch(m_vTracks[i].color(), *m_pqList),
                                           sName.isEmpty() ? tr("(removed)") : sName, m_pqList);
        pqItem->setData(Qt::UserRole, static_cast<int>(i));
    }
}

int DepthTrackEditor::currentTrack() const
{
    return m_pqList->currentRow();
}

void DepthTrackEditor::setCurrentTrack(int iTrack)
{
    const QSignalBlocker blocker(m_pqList);
    m_pqList->setCurrentRow(iTrack);
    showCurrentTrack();
}

void DepthTrackEditor::showColor()
{
    const int iTrack = currentTrack();
    if (iTrack < 0)
        return;
    const QColor oColor = m_vTracks[static_cast<std::size_t>(iTrack)].color();
    m_pqColorButton->setIcon(swatch(oColor, *this));
    m_pqList->item(iTrack)->setIcon(swatch(oColor, *m_pqList));
}

void DepthTrackEditor::showCurrentTrack()
{
    const int iTrack = currentTrack();
    const int iTracks = static_cast<int>(m_vTracks.size());
    m_pqRemoveButton->setEnabled(iTrack >= 0);
    m_pqUpButton->setEnabled(iTrack > 0);
    m_pqDownButton->setEnabled(iTrack >= 0 && iTrack + 1 < iTracks);
    const DepthTrack track = iTrack >= 0 ? m_vTracks[static_cast<std::size_t>(iTrack)] : DepthTrack();
    const bool bTadpoles = track.m_eKind == DepthTrack::Tadpoles;
    const DepthTrackStyle& style = track.m_oStyle;
    m_pqLooks->setEnabled(track.m_poValues.get() != nullptr);
    m_pqLooks->setTitle(track.name().isEmpty() ? tr("Track") : track.name());
    const QSignalBlocker blockers[] = {QSignalBlocker(m_pqLineWidth), QSignalBlocker(m_pqPointSize)};
    m_pqLine->setChecked(style.m_bLine);
    m_pqLine->setVisible(!bTadpoles);
    m_pqLineWidth->setValue(style.m_iLineWidth);
    m_pqLineWidth->setVisible(!bTadpoles);
    m_pqPoints->setChecked(style.m_bPoints || bTadpoles);
    m_pqPoints->setEnabled(!bTadpoles);
    m_pqPoints->setText(bTadpoles ? tr("Tadpoles") : tr("Points"));
    m_pqPointSize->setValue(style.m_iPointSize);
    m_pqAutomatic->setChecked(style.m_bAutomaticLimits);
    m_pqReversed->setChecked(style.m_bReversed);
    const MatrixData* poValues = track.m_poValues.get();
    const DepthTrackLimits limits = track.limits();
    for (QUnitLineEdit* pqEdit : {m_pqMinimum, m_pqMaximum})
        pqEdit->unitManager(poValues ? poValues->unitManager() : boost::shared_ptr<UnitManager>());
    m_pqMinimum->setModelValue(std::min(limits.m_dLeft, limits.m_dRight), false);
    m_pqMaximum->setModelValue(std::max(limits.m_dLeft, limits.m_dRight), false);
    m_pqTadpoleRow->setVisible(bTadpoles);
    int iQuality = 0;
    for (std::size_t i = 0; i < m_vOffers.size(); ++i) {
        if (track.m_poQuality && m_vOffers[i].m_poNode.get() == track.m_poQuality.get())
            iQuality = static_cast<int>(i) + 1;
    }
    m_pqQuality->setCurrentIndex(iQuality);
    m_pqMinimumQuality->setEnabled(iQuality > 0);
    m_pqMinimumQuality->setModelValue(track.m_dMinimumQuality, false);
    showColor();
}

// ---- edits ----------------------------------------------------------------------------------------------------------

void DepthTrackEditor::changeTracks(std::vector<DepthTrack> vTracks, int iCurrent)
{
    m_vTracks = std::move(vTracks);
    fillList();
    setCurrentTrack(std::min(iCurrent, static_cast<int>(m_vTracks.size()) - 1));
    emit tracksEdited();
    emit currentTrackChanged(currentTrack());
}

void DepthTrackEditor::slotAdd()
{
    if (m_pqAddBox->currentIndex() < 0)
        return;
    const int iOffer = m_pqAddBox->currentData().toInt();
    DepthTrack track;
    if (iOffer == g_iTadpoleOffer)
        track = DepthTrack::tadpoles(m_poDip.get(), m_poAzimuth.get());
    else
        track = DepthTrack::curve(m_vOffers[static_cast<std::size_t>(iOffer)].m_poNode.get());
    if (!track.m_poValues)
        return;
    std::vector<DepthTrack> vTracks = m_vTracks;
    vTracks.push_back(track);
    changeTracks(std::move(vTracks), static_cast<int>(m_vTracks.size()));
}

void DepthTrackEditor::slotRemove()
{
    const int iTrack = currentTrack();
    if (iTrack < 0)
        return;
    std::vector<DepthTrack> vTracks = m_vTracks;
    vTracks.erase(vTracks.begin() + iTrack);
    changeTracks(std::move(vTracks), iTrack);
}

void DepthTrackEditor::slotMove(int iStep)
{
    const int iTrack = currentTrack();
    const int iTarget = iTrack + iStep;
    if (iTrack < 0 || iTarget < 0 || iTarget >= static_cast<int>(m_vTracks.size()))
        return;
    std::vector<DepthTrack> vTracks = m_vTracks;
    std::swap(vTracks[static_cast<std::size_t>(iTrack)], vTracks[static_cast<std::size_t>(iTarget)]);
    changeTracks(std::move(vTracks), iTarget);
}

void DepthTrackEditor::slotRowsMoved()
{
    std::vector<DepthTrack> vTracks;
    vTracks.reserve(m_vTracks.size());
    for (int i = 0; i < m_pqList->count(); ++i)
        vTracks.push_back(m_vTracks[static_cast<std::size_t>(m_pqList->item(i)->data(Qt::UserRole).toInt())]);
    m_vTracks = std::move(vTracks);
    // The list is in the middle of the move: its items keep their places and only learn their new numbers.
    for (int i = 0; i < m_pqList->count(); ++i)
        m_pqList->item(i)->setData(Qt::UserRole, i);
    showCurrentTrack();
    emit tracksEdited();
}

void DepthTrackEditor::slotColor()
{
    const int iTrack = currentTrack();
    if (iTrack < 0)
        return;
    DepthTrack& track = m_vTracks[static_cast<std::size_t>(iTrack)];
    const QColor oColor = QColorDialog::getColor(track.color(), this, tr("Color of the track"));
    // The dialog runs an event loop of its own, in which tracks may have gone.
    if (!oColor.isValid() || iTrack != currentTrack())
        return;
    m_vTracks[static_cast<std::size_t>(iTrack)].m_oStyle.m_oColor = oColor;
    showColor();
    emit trackEdited(iTrack);
}

void DepthTrackEditor::slotLimitEdited()
{
    m_pqAutomatic->setChecked(false);
    slotLooksEdited();
}

void DepthTrackEditor::slotLooksEdited()
{
    const int iTrack = currentTrack();
    if (iTrack < 0)
        return;
    DepthTrack& track = m_vTracks[static_cast<std::size_t>(iTrack)];
    DepthTrackStyle& style = track.m_oStyle;
    if (track.m_eKind == DepthTrack::Curve) {
        style.m_bLine = m_pqLine->isChecked();
        style.m_bPoints = m_pqPoints->isChecked();
    }
    style.m_iLineWidth = m_pqLineWidth->value();
    style.m_iPointSize = m_pqPointSize->value();
    style.m_bReversed = m_pqReversed->isChecked();
    style.m_bAutomaticLimits = m_pqAutomatic->isChecked();
    const double dMinimum = m_pqMinimum->modelValue();
    const double dMaximum = m_pqMaximum->modelValue();
    if (!style.m_bAutomaticLimits && !isMissing(dMinimum) && !isMissing(dMaximum)) {
        style.m_dMinimum = std::min(dMinimum, dMaximum);
        style.m_dMaximum = std::max(dMinimum, dMaximum);
    }
    const int iQuality = m_pqQuality->currentData().toInt();
    track.m_poQuality = iQuality < 0 ? MatrixDataPointer() : m_vOffers[static_cast<std::size_t>(iQuality)].m_poNode;
    if (!isMissing(m_pqMinimumQuality->modelValue()))
        track.m_dMinimumQuality = m_pqMinimumQuality->modelValue();
    showCurrentTrack();
    emit trackEdited(iTrack);
}

} // namespace gkBase
