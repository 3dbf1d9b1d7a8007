#pragma once

#include <QCoreApplication>
#include <QString>

class QFont;
class SoField;
class SoFieldContainer;

// What a field's state looks like in the tree and the captions: a field at
// its default is drawn plainly, one set in the file or by an edit stands
// out, an ignored one is slanted, and one driven by an engine or another
// field names where its value comes from. Unknown node types go by the name
// their file gave them.
class FieldMarks
{
    Q_DECLARE_TR_FUNCTIONS(FieldMarks)

public:
    // Set in the file or by an edit, rather than still at its default.
    static bool isSet(const SoField* field);
    // Where a connected field takes its value from ("Mover.output": the
    // engine's or node's name, else its type, then the output or field
    // name); empty for a field that nothing drives.
    static QString source(SoField* field);
    // The source with its arrow, as the tree's value column leads with it.
    static QString sourceMark(SoField* field);
    // A note that edits do not last while the field is driven; empty when
    // it is not.
    static QString drivenNote(SoField* field);
    // The field's state in words, for its row's tooltip.
    static QString stateText(SoField* field);
    static QFont font(SoField* field, const QFont& base);

    // The type a person knows the container by: for a node whose type Coin
    // did not know, the name the file gave it.
    static QString typeName(SoFieldContainer* container);
    // Its name, or its type when it has none.
    static QString displayName(SoFieldContainer* container);
};
