#pragma once

#include <QMetaType>

// The default span of a numeric editor or slider, and whether the span is a
// hard limit (bounded) or only where the slider starts (unbounded). A record
// fills only the pair of its kind; the others stay 0. Double bounds are kept
// in single precision: sliders work with single-precision bounds anyway.
class FieldRange
{
public:
    FieldRange() = default;
    FieldRange(int min, int max, bool bounded);
    FieldRange(float min, float max, bool bounded);
    FieldRange(double min, double max, bool bounded);

    float floatMin() const { return m_floatMin; }
    float floatMax() const { return m_floatMax; }
    float doubleMin() const { return m_doubleMin; }
    float doubleMax() const { return m_doubleMax; }
    int intMin() const { return m_intMin; }
    int intMax() const { return m_intMax; }
    bool isBounded() const { return m_isBounded; }

    void setFloatRange(float min, float max);
    void setDoubleRange(double min, double max);
    void setIntRange(int min, int max);
    void setBounded(bool bounded);

    bool operator==(const FieldRange& other) const;
    bool operator!=(const FieldRange& other) const { return !(*this == other); }

private:
    float m_floatMin = 0.0f;
    float m_floatMax = 0.0f;
    float m_doubleMin = 0.0f;
    float m_doubleMax = 0.0f;
    int m_intMin = 0;
    int m_intMax = 0;
    bool m_isBounded = false;
};

Q_DECLARE_METATYPE(FieldRange)
