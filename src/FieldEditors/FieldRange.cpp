#include "FieldRange.h"

FieldRange::FieldRange(int min, int max, bool bounded)
    : m_intMin(min)
    , m_intMax(max)
    , m_isBounded(bounded)
{}

FieldRange::FieldRange(float min, float max, bool bounded)
    : m_floatMin(min)
    , m_floatMax(max)
    , m_isBounded(bounded)
{}

FieldRange::FieldRange(double min, double max, bool bounded)
    : m_doubleMin(float(min))
    , m_doubleMax(float(max))
    , m_isBounded(bounded)
{}

void FieldRange::setFloatRange(float min, float max)
{
    m_floatMin = min;
    m_floatMax = max;
}

void FieldRange::setDoubleRange(double min, double max)
{
    m_doubleMin = float(min);
    m_doubleMax = float(max);
}

void FieldRange::setIntRange(int min, int max)
{
    m_intMin = min;
    m_intMax = max;
}

void FieldRange::setBounded(bool bounded)
{
    m_isBounded = bounded;
}

bool FieldRange::operator==(const FieldRange& other) const
{
    return m_intMin == other.m_intMin && m_intMax == other.m_intMax && m_floatMin == other.m_floatMin &&
           m_floatMax == other.m_floatMax && m_doubleMin == other.m_doubleMin &&
           m_doubleMax == other.m_doubleMax && m_isBounded == other.m_isBounded;
}
