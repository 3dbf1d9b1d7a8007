#pragma once

#include <QString>

class SoField;

// What must hold of a field after any text reached it through an editor.
// A broken invariant ends the run at once with what broke, on which field,
// after which text: the fuzzer keeps the input that did it.
class FieldTextOracle
{
public:
    // Aborts when `holds` is false.
    static void require(bool holds, const char* what, const SoField* field, const QString& text);

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
    static bool sameText(const QString& written, const QString& again);
};
