#pragma once

#include <QCoreApplication>
#include <QModelIndex>
#include <QString>

class SceneModel;

// The text a person types to reach a row of the scene tree, and the text
// that names a row. A path starts at a node found by its name anywhere in
// the scene ("Ornament") or at the root ("/"), and goes on by steps:
// "/3" or "/Gold" to a child, by its place among the children or by its
// name, ".vertexProperty" to a field, and "/0" or "/Coords" from a field to
// a node it holds, by the value's place or the node's name. So
// "Ornament/Gold.diffuseColor", "/3/1.diffuseColor" and
// "/1/3/1.vertexProperty/0.vertex" are paths; without the field part a path
// names the node.
class ScenePath
{
    Q_DECLARE_TR_FUNCTIONS(ScenePath)

public:
    // Longer node or field names are refused before they reach Coin, whose
    // name table cannot take names of tens of thousands of characters. No
    // name a scene holds comes near it.
    static constexpr int kMaxNameLength = 1024;

    static QModelIndex find(const SceneModel& model, const QString& path, QString* error);

    // The path that find() takes back to this row: from the highest node
    // on the way whose name no other node has, else from the root, by
    // names where they tell the row apart and by places where names are
    // missing or repeated. Empty for no row.
    static QString of(const SceneModel& model, const QModelIndex& row);
};
