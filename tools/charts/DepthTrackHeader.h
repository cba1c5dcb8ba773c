#pragma once

#include "DepthTrack.h"

#include <QColor>
#include <QRectF>
#include <QString>
#include <QWidget>

class QFont;
class QFontMetricsF;
class QPainter;

namespace gkBase {

/// The texts and signs above a track, as they are shown.
struct DepthTrackHeaderContent
{
    QString m_sName;
    QString m_sUnit;
    QString m_sLeft; ///< limits
    QString m_sRight;
    QString m_sValue; ///< read-out at the cursor without unit, takes the unit's place; empty for none
    QColor m_oColor;
    QColor m_oPointColor;
    bool m_bLine = true;
    bool m_bPoints = false;
    int m_iLineWidth = 1;
    QString m_sNote; ///< beside the unit

    bool operator==(const DepthTrackHeaderContent&) const = default;
};

DepthTrackHeaderContent depthTrackHeaderContent(const DepthTrack& track);
/// Height that a header of that font needs.
int depthTrackHeaderHeight(const QFontMetricsF& metrics);
/// Name, unit (or read-out), and the limits at both ends above a stretch of the track's line, in a frame.
void drawDepthTrackHeader(QPainter& painter, const QRectF& oRect, const DepthTrackHeaderContent& content,
                          const QFont& oFont, const QColor& oTextColor);

/// The header above a track, as well-log prints have it. A click chooses the track.
class DepthTrackHeader : public QWidget
{
    Q_OBJECT
public:
    explicit DepthTrackHeader(QWidget* pqParent = nullptr);

    void setContent(const DepthTrackHeaderContent& content);
    const DepthTrackHeaderContent& content() const { return m_content; }
    /// What stands in the place of the unit while it is not empty.
    void setValue(const QString& sValue);
    void setTextColor(const QColor& oColor);
    void setCurrent(bool bCurrent);
    int heightForTexts() const;

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;

private:
    DepthTrackHeaderContent m_content;
    QColor m_oTextColor = Qt::black;
    bool m_bCurrent = false;
};

} // namespace gkBase
