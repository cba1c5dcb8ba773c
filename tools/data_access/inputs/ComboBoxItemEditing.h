#pragma once

#include <QString>
#include <QStringList>

class QAbstractItemModel;
class QComboBox;
class QModelIndex;
class QStyledItemDelegate;
class QWidget;

namespace gkBase {

/// The combo box of the delegates that choose one of a list of names. Choosing an entry commits and closes the editor
/// at once.
QComboBox* createChoiceEditor(QWidget* pqParent, QStyledItemDelegate* pqDelegate, const QStringList& lChoices);
/// Makes the index's edit value current; a value that is not among the choices is put in front of them.
void setChoiceEditorData(QWidget* pqEditor, const QModelIndex& index);
/// Writes the chosen name into the model unless it is there already.
void setChoiceModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index);

} // namespace gkBase
