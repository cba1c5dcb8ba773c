// Draws the picture of the Woodcock diagram for the resources: woodcock_picture FOLDER. See scripts/render-icons.sh.

#include <gkBase/QWoodcockHelpWidget.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTextStream>

namespace {

/// The larger of the two sizes at which the pixels of the diagram's axes are fixed.
constexpr int g_iSize = 634;

bool draw(const QString& sPath, int iPixelRatio)
{
    gkBase::QWoodcockHelpWidget diagram;
    QImage oImage(g_iSize * iPixelRatio, g_iSize * iPixelRatio, QImage::Format_RGB32);
    oImage.setDevicePixelRatio(iPixelRatio);
    QPainter painter(&oImage);
    diagram.renderTo(painter, QRect(0, 0, g_iSize, g_iSize));
    painter.end();
    if (oImage.save(sPath))
        return true;
    QTextStream(stderr) << "cannot write " << sPath << '\n';
    return false;
}

} // namespace

int main(int iArguments, char** ppArguments)
{
    const QApplication application(iArguments, ppArguments);
    const QString sFolder = application.arguments().value(1, QStringLiteral("."));
    const bool bDone =
        draw(sFolder + QStringLiteral("/Woodcock.png"), 1) && draw(sFolder + QStringLiteral("/Woodcock@2x.png"), 2);
    return bDone ? 0 : 1;
}
