#include "AnglesDialog.h"

#include <QDialogButtonBox>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace gkHost {

AnglesDialog::AnglesDialog(QWidget* pqParent)
    : QDialog(pqParent)
{
    setWindowTitle(tr("Conventions of Angles"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* pqText = new QTextBrowser(this);
    pqText->setAccessibleName(windowTitle());
    pqText->setHtml(
        tr("<h3>Conventions of angles</h3>"
           "<p>All angles are in degrees.</p>"
           "<table cellspacing='0' cellpadding='4'>"
           "<tr><td><b>Azimuth</b></td><td>clockwise from north, from 0 up to but not including 360</td></tr>"
           "<tr><td><b>Dip</b></td><td>of a plane: downwards from horizontal, 0 to 90</td></tr>"
           "<tr><td><b>Dip azimuth</b></td><td>of a plane: the direction in which it dips</td></tr>"
           "<tr><td><b>Strike</b></td><td>by the right-hand rule: dip azimuth − 90, so that the plane dips "
           "to the right of the strike direction</td></tr>"
           "<tr><td><b>Plunge</b></td><td>of a line: downwards from horizontal, 0 to 90</td></tr>"
           "<tr><td><b>Trend</b></td><td>of a line: the azimuth in which it plunges</td></tr>"
           "<tr><td><b>Pole</b></td><td>of a plane: the line at right angles to it; plunge 90 − dip, azimuth "
           "dip azimuth + 180</td></tr>"
           "<tr><td><b>Pitch</b></td><td>of a line in a plane: measured in the plane from the strike "
           "direction, 0 to 180</td></tr>"
           "</table>"
           "<p>Example: a plane with strike 030 and dip 45 (N30E/45SE) has the dip azimuth 120 and is "
           "written 45/120; its pole is the line 45/300.</p>"
           "<p>The strike attribute is linked to its azimuth: changing one changes the other.</p>"));
    auto* pqButtons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(pqButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(pqText);
    pqLayout->addWidget(pqButtons);
    resize(620, 440);
}

} // namespace gkHost
