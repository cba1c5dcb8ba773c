#include <gkBase/MatrixData.h>
#include <gkBase/QDataAnalyserDialog.h>
#include <gkBase/QVertexModelTableView.h>
#include <gkBase/UnitRegistry.h>

#include <QApplication>

#include <cstdio>

// Embeds the analyser over a data set of its own and leaves with 0 when the table shows it.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);

    gkBase::UnitRegistry registry;
    gkBase::MatrixData root(QStringLiteral("Data"));
    auto* poWell = new gkBase::MatrixData(QStringLiteral("Well"));
    root.appendChild(poWell, false);
    auto* poDip = new gkBase::MatrixData(QStringLiteral("Dip"), 3, 1);
    for (int i = 0; i < 3; ++i)
        poDip->setValue(poDip->rowOffSet() + i, 0, 10.0 * i);
    poWell->appendChild(poDip, true);
    poDip->setSelected(true);

    gkBase::QDataAnalyserDialog analyser(nullptr);
    analyser.initialize(QStringLiteral("Analyser"), nullptr, Qt::Horizontal, false, true, true, 0);
    analyser.setRegistry(&registry);
    analyser.changeDataRoot(&root);
    analyser.resize(900, 600);
    analyser.show();
    QCoreApplication::processEvents();

    const QAbstractItemModel* pqTable = analyser.vertexTable()->model();
    const int iRows = pqTable->rowCount();
    const int iColumns = pqTable->columnCount();
    std::printf("table of %d rows and %d columns\n", iRows, iColumns);
    return iRows == 6 && iColumns == 1 ? 0 : 1;
}
