#pragma once

#include "FieldRange.h"

#include <QMap>
#include <QString>

class SoField;

// Spans of numeric editors keyed by node type name followed directly by the
// field name ("Complexityvalue"). The map is a value: each user builds its
// own, uses it and drops it.
using FieldRangeMap = QMap<QString, FieldRange>;

FieldRangeMap buildFieldRangeMap();

// The record under nodeType + fieldName, or an all-zero unbounded record.
FieldRange fieldRange(const FieldRangeMap& map, const char* nodeType, const char* fieldName);
bool hasFieldRange(const FieldRangeMap& map, const char* nodeType, const char* fieldName);

// The base an integer text is written in: 16 for "0x..." longer than two
// characters, 8 for exactly two characters starting with "0" ("07"), 10
// otherwise ("010" is ten). The asymmetry is how bounds have always read.
int integerBase(const QString& text);
// The text read in integerBase(text); 0 and ok false when it does not parse.
int parseInteger(const QString& text, bool* ok = nullptr);

// Which row a numeric editor takes for its field.
enum class FieldRangeKind
{
    Float,
    Double,
    Integer
};

// Float and double editors take the ("Complexity", "value") row for any field
// of a complexity, material or directional light node, and the default row
// of their kind otherwise; integer editors always take the default integer
// row. A double editor on those three node types thus gets the float row's
// zero double pair, bounded: editors widen it to the field's value.
FieldRange fieldRangeForField(const FieldRangeMap& map, const SoField* field, FieldRangeKind kind);
