#pragma once

#include <QModelIndex>
#include <QString>

class SceneModel;

// Finds a row of the scene tree from a text a person can type:
// "Material.diffuseColor" (a node by its name, then one of its fields),
// "/0/3.diffuseColor" (child places from the root; "/" is the root itself)
// or either without the field part for the node.
class ScenePath
{
public:
    static QModelIndex resolve(const SceneModel& model, const QString& path, QString* error);
};
