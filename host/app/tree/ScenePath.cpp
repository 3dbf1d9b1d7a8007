#include "ScenePath.h"

#include "SceneModel.h"

#include <Inventor/SoPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/nodes/SoNode.h>

#include <QCoreApplication>

#include <vector>

namespace {

// A name as an error message shows it: long ones are cut.
QString shown(const QString& name)
{
    constexpr int kShownLength = 60;
    return name.size() > kShownLength ? name.left(kShownLength - 1) + QChar(0x2026) : name;
}

bool placesByName(SoNode* root, const QString& name, std::vector<int>* places)
{
    SoSearchAction search;
    search.setName(SbName(name.toUtf8().constData()));
    search.setInterest(SoSearchAction::FIRST);
    search.setSearchingAll(TRUE);
    search.apply(root);
    SoPath* path = search.getPath();
    if (!path)
        return false;
    for (int i = 1; i < path->getLength(); ++i)
        places->push_back(path->getIndex(i));
    return true;
}

bool placesByNumbers(const QString& text, std::vector<int>* places)
{
    const QStringList parts = text.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        bool ok = false;
        const int place = part.toInt(&ok);
        if (!ok || place < 0)
            return false;
        places->push_back(place);
    }
    return true;
}

} // namespace

QModelIndex ScenePath::find(const SceneModel& model, const QString& path, QString* error)
{
    SoNode* root = model.root();
    if (!root) {
        *error = tr("There is no scene to select \"%1\" in.").arg(path);
        return QModelIndex();
    }
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    const QString nodePart = dot < 0 ? path : path.left(dot);
    const QString fieldPart = dot < 0 ? QString() : path.mid(dot + 1);
    const bool byPlaces = nodePart.startsWith(QLatin1Char('/'));
    for (const QString& name : {byPlaces ? QString() : nodePart, fieldPart}) {
        if (name.size() > kMaxNameLength) {
            *error =
                tr("The name \"%1\" is %2 characters long; names of more than %3 characters are refused.")
                    .arg(shown(name))
                    .arg(name.size())
                    .arg(kMaxNameLength);
            return QModelIndex();
        }
    }

    // An empty name would stand for the root, so that "" and "." chose it
    // without a word; a dot promises a field.
    if (!byPlaces && nodePart.isEmpty()) {
        *error = tr("The path \"%1\" names no node: give a node's name (Stone.diffuseColor) or its "
                    "places from the root (/3/1.diffuseColor).")
                     .arg(shown(path));
        return QModelIndex();
    }
    if (dot >= 0 && fieldPart.isEmpty()) {
        *error = tr("The path \"%1\" names no field after its dot.").arg(shown(path));
        return QModelIndex();
    }

    std::vector<int> places;
    const bool found = byPlaces ? placesByNumbers(nodePart, &places) : placesByName(root, nodePart, &places);
    const QModelIndex nodeRow = found ? model.nodeIndex(places) : QModelIndex();
    if (!nodeRow.isValid()) {
        *error = tr("The scene has no node \"%1\".").arg(shown(nodePart));
        return QModelIndex();
    }
    if (fieldPart.isEmpty())
        return nodeRow;
    auto* node = static_cast<SoNode*>(model.container(nodeRow));
    SoField* field = node->getField(SbName(fieldPart.toLatin1().constData()));
    const QModelIndex fieldRow = model.fieldIndex(nodeRow, field);
    if (!fieldRow.isValid()) {
        *error = tr("The node \"%1\" has no field \"%2\".").arg(shown(nodePart), shown(fieldPart));
        return QModelIndex();
    }
    return fieldRow;
}
