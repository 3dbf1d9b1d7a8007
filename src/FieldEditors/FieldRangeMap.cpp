#include "FieldRangeMap.h"

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoMaterial.h>

namespace {

struct RangeRow
{
    const char* nodeType;
    const char* fieldName;
    const char* minValue;
    const char* maxValue;
    const char* type;
    const char* isBounded;
};

constexpr int kRangeRowCount = 7;

const RangeRow kRangeRows[kRangeRowCount] = {
    {"DefaultNode", "floatField", "0.0", "10.0", "f", "0"},
    {"DefaultNode", "doubleField", "0.0", "10.0", "d", "0"},
    {"DefaultNode", "intField", "0", "100", "i", "0"},
    {"Complexity", "value", "0.0", "1.0", "f", "1"},
    {"Complexity", "textureQuality", "0.0", "1.0", "f", "1"},
    {"DirectionalLight", "intensity", "0.0", "1.0", "f", "1"},
    {"Material", "transparency", "0.0", "1.0", "f", "1"},
};

QString fieldKey(const char* nodeType, const char* fieldName)
{
    return QString::fromLatin1(nodeType) + QString::fromLatin1(fieldName);
}

// The row each kind of editor takes for a field of the node types that have
// spans of their own, and for any other field.
struct KindRows
{
    FieldRangeKind kind;
    bool followsNodeType;
    const char* defaultField;
};

const KindRows kKindRows[] = {
    {FieldRangeKind::Float, true, "floatField"},
    {FieldRangeKind::Double, true, "doubleField"},
    {FieldRangeKind::Integer, false, "intField"},
};

bool hasNodeSpan(const SoField* field)
{
    const SoFieldContainer* container = field ? field->getContainer() : nullptr;
    if (!container)
        return false;
    for (SoType type : {SoComplexity::getClassTypeId(), SoMaterial::getClassTypeId(),
                        SoDirectionalLight::getClassTypeId()}) {
        if (container->isOfType(type))
            return true;
    }
    return false;
}

} // namespace

int integerBase(const QString& text)
{
    if (text.size() > 2 && text.startsWith(QLatin1String("0x")))
        return 16;
    if (text.size() == 2 && text.startsWith(QLatin1Char('0')))
        return 8;
    return 10;
}

int parseInteger(const QString& text, bool* ok)
{
    const int base = integerBase(text);
    bool parsed = false;
    int value = (base == 16 ? text.mid(2) : text).toInt(&parsed, base);
    if (!parsed)
        value = 0;
    if (ok)
        *ok = parsed;
    return value;
}

FieldRangeMap buildFieldRangeMap()
{
    FieldRangeMap map;
    for (int i = 0; i < kRangeRowCount; ++i) {
        const RangeRow& row = kRangeRows[i];
        const QString type = QString::fromLatin1(row.type);
        const QString minValue = QString::fromLatin1(row.minValue);
        const QString maxValue = QString::fromLatin1(row.maxValue);
        FieldRange rangeTmp;
        if (type == QLatin1String("f"))
            rangeTmp.setFloatRange(minValue.toFloat(), maxValue.toFloat());
        if (type == QLatin1String("d"))
            rangeTmp.setDoubleRange(minValue.toDouble(), maxValue.toDouble());
        else if (type == QLatin1String("i"))
            rangeTmp.setIntRange(parseInteger(minValue), parseInteger(maxValue));
        rangeTmp.setBounded(QString::fromLatin1(row.isBounded).toInt(nullptr, 10) != 0);
        map.insert(fieldKey(row.nodeType, row.fieldName), rangeTmp);
    }
    return map;
}

FieldRange fieldRange(const FieldRangeMap& map, const char* nodeType, const char* fieldName)
{
    return map.value(fieldKey(nodeType, fieldName));
}

bool hasFieldRange(const FieldRangeMap& map, const char* nodeType, const char* fieldName)
{
    return map.contains(fieldKey(nodeType, fieldName));
}

FieldRange fieldRangeForField(const FieldRangeMap& map, const SoField* field, FieldRangeKind kind)
{
    for (const KindRows& rows : kKindRows) {
        if (rows.kind != kind)
            continue;
        if (rows.followsNodeType && hasNodeSpan(field))
            return fieldRange(map, "Complexity", "value");
        return fieldRange(map, "DefaultNode", rows.defaultField);
    }
    return FieldRange();
}
