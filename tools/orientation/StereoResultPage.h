#pragma once

#include "StereoNetSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QGridLayout;
class QSpinBox;

namespace gkBase {

class ColorButton;

/// Which results are drawn on the net, in which colour and, of circles, how wide.
class GKBASETOOLS_EXPORT StereoResultPage : public QWidget
{
    Q_OBJECT
public:
    explicit StereoResultPage(QWidget* pqParent = nullptr);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoNetSettings& net) const;
    /// Emits nothing.
    void setSettings(const StereoNetSettings& net);
    /// Lines have no poles: the results of planes cannot be chosen then.
    void setLines(bool bLines);

signals:
    void changed();

private:
    struct Row
    {
        QCheckBox* m_pqShow = nullptr;
        ColorButton* m_pqColor = nullptr;
        QSpinBox* m_pqWidth = nullptr; ///< of circles only
    };

    void addRow(QGridLayout& grid, StereoResult eResult);
    static QString toolTipOf(StereoResult eResult);

    std::array<Row, g_iStereoResults> m_aRows{};
    QCheckBox* m_pqLabelsCheckBox;
};

} // namespace gkBase
