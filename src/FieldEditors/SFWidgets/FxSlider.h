#pragma once

#include <Inventor/SbString.h>

#include <QFrame>

class KalFieldEditors;
class QCheckBox;
class QHBoxLayout;
class QLineEdit;
class QSlider;

// A check box, a slider and a line edit side by side: how a number is edited,
// in a single-value editor or as the cell editor of a numeric table column.
// The frame keeps the value and its span, maps the value to slider positions
// and tells its owning editor when the value should go into the field.
// FxRealSlider, FxIntSlider and FxUIntSlider give the value its type.
class FxSlider : public QFrame
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSlider)

public:
    FxSlider(int inTable, KalFieldEditors* editor, QWidget* parent, int row, int column);
    ~FxSlider() override;

    // Sets the value from the text of a field value.
    virtual void setValueText(QString text);
    // Shows the value in the line edit.
    virtual void updateText();
    // Reads the line edit into the value.
    virtual void readText();
    // Sets the value from a slider position.
    virtual void setPosition(int position);
    // Keeps the value's text as the previous value of the next change.
    virtual void storeValueText();

    QLineEdit* getLineEdit() const { return lineEdit; }
    QSlider* getSlider() const { return slider; }
    QCheckBox* getCheckBox() const { return checkBox; }
    // The value's text from the start of the user's change. A command takes
    // it over and leaves it null.
    SbString& previousValueText() { return valueText; }
    // The line edit's text with its base's prefix.
    QString textWithPrefix() const;
    // What goes to the field: the text with its prefix, unless the value
    // holds more than the line edit shows.
    virtual QString fieldText() const;
    int numberBase() const { return base; }

public slots:
    void changeValueFromEdit();
    void eventNotify(bool state);
    void beginCallback();
    void finishCallback();
    void valueChangeSlot(int newValue);

protected:
    // Moves the slider to `position` without taking it for a user's move.
    void syncSlider();
    void notifyEditor();
    // Puts text into the line edit with the cursor at its start.
    void showText(const QString& text);
    // The first text an integer frame receives fixes its base; returns the
    // text without its prefix.
    QString takeBase(const QString& text, bool& detectBase);
    // Runs a change of the slider's span without reporting the slider's own
    // adjustment as a user's move.
    template <class Change>
    void quietly(Change change)
    {
        const bool wasEnabled = notifyEnabled;
        notifyEnabled = false;
        change();
        notifyEnabled = wasEnabled;
    }

    QLineEdit* lineEdit = nullptr;
    SbString valueText;
    QHBoxLayout* layout = nullptr;
    int position = 0;
    QSlider* slider = nullptr;
    QCheckBox* checkBox = nullptr;
    bool notifyWhileDragging = true;
    bool dragging = false;
    // Whether the slider moved since it was pressed: one released where it
    // was pressed keeps the value, not its position's rounded one.
    bool movedSincePress = false;
    bool notifyEnabled = false;
    int inTable = 0;
    int base = 10;
    KalFieldEditors* editor = nullptr;
    int row = 0;
    int column = 0;
};
