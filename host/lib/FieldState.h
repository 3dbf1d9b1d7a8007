#pragma once

#include <memory>

class SoField;

// A field's value and flags as they were at one moment, held in a field of
// the same type that belongs to no node: compared with the field bit for bit
// and written back into it. Lists of plain numbers are compared as memory,
// so that a list of a million values costs a scan, not a million texts.
class FieldState
{
public:
    FieldState();
    explicit FieldState(SoField* field);
    ~FieldState();
    FieldState(FieldState&& other) noexcept;
    FieldState& operator=(FieldState&& other) noexcept;

    bool isEmpty() const { return !m_copy; }
    // The kept value, flags included; null when empty.
    SoField* copy() const { return m_copy.get(); }
    // Becomes the field's present state.
    void refresh(SoField* field);
    bool matches(SoField* field) const;
    // As matches(), the flags left out.
    bool holdsValueOf(SoField* field) const;
    void writeInto(SoField* field) const;

private:
    std::unique_ptr<SoField> m_copy;
};
