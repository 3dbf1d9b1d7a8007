#pragma once

#include <QString>
#include <QVector>

// What an editor showed of a value, component by component: the text it put
// into each control and the exact number behind that text. Controls show
// numbers shortened to a few digits; a control whose text is still the one
// shown was not changed by the user, and its component must go back to the
// field as the field holds it, not as the shortened text reads.
class ShownComponents
{
public:
    void clear();
    // Remembers that `text` was shown for component `index`, which the field
    // holds as `exact`.
    void show(int index, float exact, const QString& text);
    // Whether a control's text is still what was shown for its component.
    bool isShown(int index, const QString& text) const;
    // The component a control's text stands for: the field's own number while
    // the text is the one shown, else the number read from the text (an
    // unreadable or empty text is 0). False when the text names a number a
    // float cannot hold.
    bool read(int index, const QString& text, float& value) const;

private:
    QVector<QString> texts;
    QVector<float> values;
};
