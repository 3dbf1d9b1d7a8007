#include "FieldLineEdit.h"

#include <limits>

FieldLineEdit::FieldLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setMaxLength(std::numeric_limits<int>::max());
}

FieldLineEdit::~FieldLineEdit() = default;
