#pragma once

#include <QByteArray>
#include <QString>

class FxMFieldWidget;
class FxSFieldWidget;
class QLineEdit;
class SoField;
class SoMField;

// What must hold of a field after any text reached it through an editor.
// A broken invariant ends the run at once with what broke, on which field,
// after which text: the fuzzer keeps the input that did it.
class FieldTextOracle
{
public:
    // Aborts when `holds` is false.
    static void require(bool holds, const char* what, const SoField* field, const QString& text);

    // Whether the validator of `line` takes `text` whole (a line without a
    // validator takes nothing): the verdict an accepted text is held to.
    static bool validatorAccepts(const QLineEdit& line, const QString& text);
    // A text the validators' verdict is checked on. Refused before any
    // parsing are, on purpose, numbers long enough to overrun Coin's reader
    // (the validators take any length), and the empty text the unsigned
    // validator accepts while a cell is being cleared.
    static bool verdictCounts(const QString& text);

    // What must hold of the field after any text, and after undo and redo:
    // it reads back, holds no real that is not finite and, after its own
    // editor (`specific`), no plane without a normal or rotation without an
    // axis.
    static void checkField(const SoField* field, SoField* scratch, bool specific, const QString& text);
    // A text too long for Coin's reader, handed to an editor that parses
    // text, leaves the field and the history as they were.
    static void checkRefusedText(const SoField* field, const QString& textBefore, int commandsBefore,
                                 const QString& text);
    // A text the validator accepted was stored as it reads: in input `input`
    // of a single-value editor, or in a list's row and column.
    static void checkSingleStored(const FxSFieldWidget* editor, SoField* field, int input,
                                  const QString& text);
    static void checkListStored(FxMFieldWidget* editor, SoField* field, int row, int column,
                                const QString& text);
    // No text changes the number of values of a list.
    static void checkListLength(const SoMField* field, int rows, const QString& text);

    // The field's text, read into `scratch` (a field of the same type in a
    // fresh container, so that an enumeration knows its names), is taken and
    // gives the same text again (numbers to six digits: see sameText).
    static bool readsBack(const SoField* field, SoField* scratch);
    // No component of a field of reals is "nan" or "inf": Coin writes them
    // but does not read them back.
    static bool realsAreFinite(const SoField* field);
    // Every plane has a normal and every rotation an axis: a unit normal, a
    // unit quaternion. Checked only after the plane and rotation editors,
    // which refuse a text that leaves none; Coin itself reads "0 0 0 1" as a
    // plane, from a file or from the generic editor.
    static bool directionsHold(const SoField* field);

    static QString textOf(const SoField* field);
    // The field's text as Coin writes it, byte for byte.
    static QByteArray bytesOf(const SoField* field);
    static bool sameText(const QString& written, const QString& again);
};
