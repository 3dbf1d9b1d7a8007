#pragma once

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QWidget;

// How one family of vector editors lays out a component: a label above an
// input in a column of the editor's row. The names are metric keys and
// object names, looked up and set as they stand.
struct ComponentColumnStyle
{
    const char* verticalSpacing;
    const char* columnName;
    const char* labelName;
    const char* inputName;
    int columnMargin; // -1: left as the layout makes it
    bool alignLeft;
};

// Builds component columns for the vector editors.
class ComponentColumn
{
public:
    // Adds a column with a new label above `input` to `row`; returns the label.
    static QLabel* add(QWidget* frame, QHBoxLayout* row, const ComponentColumnStyle& style, QWidget* input);
    // A line edit for a float component, with the single-precision validator.
    static QLineEdit* floatLineEdit(QWidget* frame, const ComponentColumnStyle& style);
};
