#include "ShownComponents.h"

#include "NumberInput.h"

void ShownComponents::clear()
{
    texts.clear();
    values.clear();
}

void ShownComponents::show(int index, float exact, const QString& text)
{
    if (index < 0)
        return;
    if (texts.size() <= index) {
        texts.resize(index + 1);
        values.resize(index + 1);
    }
    texts[index] = text;
    values[index] = exact;
}

bool ShownComponents::isShown(int index, const QString& text) const
{
    // A null entry was never shown; an empty text shown stays an empty text.
    return index >= 0 && index < texts.size() && !texts.at(index).isNull() && texts.at(index) == text;
}

bool ShownComponents::read(int index, const QString& text, float& value) const
{
    if (isShown(index, text)) {
        value = values.at(index);
        return true;
    }
    return NumberInput::read(text, value);
}
