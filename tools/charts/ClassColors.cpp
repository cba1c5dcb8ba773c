#include "ClassColors.h"

#include "MatrixData.h"
#include "RelationshipClasses.h"

namespace gkBase {

namespace {

int idOf(const MatrixData* poAttribute)
{
    return poAttribute ? poAttribute->globalID() : -1;
}

} // namespace

void ClassColors::remember(const MatrixData* poAttribute, const RelationshipClasses& classes)
{
    if (idOf(poAttribute) != m_iAttribute)
        return;
    for (auto it = classes.names().begin(); it != classes.names().end(); ++it) {
        const QString sName = it.value().toString();
        const QColor oColor = classes.color(it.key());
        if (m_made.value(sName) != oColor)
            m_given[sName] = oColor;
    }
}

void ClassColors::restore(const MatrixData* poAttribute, const RelationshipClasses& classes,
                          const std::function<void(int, const QColor&)>& change)
{
    if (idOf(poAttribute) != m_iAttribute)
        forget();
    m_iAttribute = idOf(poAttribute);
    m_made.clear();
    for (auto it = classes.names().begin(); it != classes.names().end(); ++it) {
        const QString sName = it.value().toString();
        const QColor oGiven = m_given.value(sName);
        if (oGiven.isValid())
            change(it.key(), oGiven);
        m_made.insert(sName, classes.color(it.key()));
    }
}

} // namespace gkBase
