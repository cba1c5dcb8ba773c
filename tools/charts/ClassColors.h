#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QHash>
#include <QString>

#include <functional>

namespace gkBase {

class MatrixData;
class RelationshipClasses;

/// The colours that the user gave to the classes of an attribute, kept by the classes' names while the classes are made
/// again from changed values. Classes of another attribute begin with their own colours.
class GKBASETOOLS_EXPORT ClassColors
{
public:
    /// Before the classes are made again: takes the colours that were changed since restore().
    void remember(const MatrixData* poAttribute, const RelationshipClasses& classes);
    /// After they were made: asks for the colours that the user had given.
    void restore(const MatrixData* poAttribute, const RelationshipClasses& classes,
                 const std::function<void(int iClass, const QColor&)>& change);
    /// The next classes keep the colours that they are made with.
    void forget() { m_given.clear(); }

private:
    int m_iAttribute = -1;          ///< globalID()
    QHash<QString, QColor> m_made;  ///< as they were after restore()
    QHash<QString, QColor> m_given; ///< by the user
};

} // namespace gkBase
