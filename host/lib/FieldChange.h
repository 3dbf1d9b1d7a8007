#pragma once

#include "FieldState.h"

#include <QByteArray>

#include <memory>

class SoField;

// What one history entry did to one field, kept so that undo and redo can
// put back exactly what the user saw before and after. A list of plain
// values keeps only the rows between the first and the last that differ,
// so an edited cell of a million-value list costs a few bytes; any other
// field keeps its whole value before and after.
class FieldChange
{
public:
    // What changed between `before` and the field's present state; null
    // when every bit and flag is as it was.
    static std::unique_ptr<FieldChange> between(const FieldState& before, SoField* field);

    SoField* field() const { return m_field; }
    // Single-value changes, whose whole value is kept, can join a later one.
    bool canJoin(const FieldChange& later) const;
    // Takes the later change's result as its own; false when the two
    // together leave the field as it was.
    bool join(FieldChange& later);
    // The whole value before, where it is kept; null for a list span.
    SoField* wholeBefore() const { return m_before.copy(); }

    // The value is as it was and only the field's default flag went: what
    // an editor does when it writes the value it was just filled with.
    bool onlyClearsDefault() const;

    void writeBefore() const;
    void writeAfter() const;

private:
    // The rows of a list that differ: [start, start + count) on each side.
    struct Span
    {
        int start = 0;
        int countBefore = 0;
        int countAfter = 0;
        int totalBefore = 0;
        int totalAfter = 0;
        QByteArray before;
        QByteArray after;
        bool ignoredBefore = false;
        bool ignoredAfter = false;
        bool defaultBefore = false;
        bool defaultAfter = false;
    };

    explicit FieldChange(SoField* field);
    void writeSpan(bool after) const;

    SoField* m_field;
    FieldState m_before;
    FieldState m_after;
    std::unique_ptr<Span> m_span;
};
