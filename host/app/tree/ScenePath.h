#pragma once

#include <QCoreApplication>
#include <QModelIndex>
#include <QString>

class SceneModel;

// Finds a row of the scene tree from a text a person can type:
// "Material.diffuseColor" (a node by its name, then one of its fields),
// "/0/3.diffuseColor" (child places from the root; "/" is the root itself)
// or either without the field part for the node.
class ScenePath
{
    Q_DECLARE_TR_FUNCTIONS(ScenePath)

public:
    // Longer node or field names are refused before they reach Coin, whose
    // name table cannot take names of tens of thousands of characters. No
    // name a scene holds comes near it.
    static constexpr int kMaxNameLength = 1024;

    static QModelIndex find(const SceneModel& model, const QString& path, QString* error);
};
