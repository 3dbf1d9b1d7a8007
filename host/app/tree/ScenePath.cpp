#include "ScenePath.h"

#include "SceneModel.h"
#include "SceneRows.h"

#include <Inventor/SbName.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/lists/SoNodeList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

#include <QCoreApplication>

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace {

// A name as an error message shows it: long ones are cut.
QString shown(const QString& name)
{
    constexpr int kShownLength = 60;
    return name.size() > kShownLength ? name.left(kShownLength - 1) + QChar(0x2026) : name;
}

// One step of a path: what comes after a '/' or a '.', or the start.
struct Step
{
    QChar separator;
    QString text;
    // The path up to and with this step, for messages.
    int end = 0;
};

std::vector<Step> stepsOf(const QString& path)
{
    std::vector<Step> steps(1);
    for (int i = 0; i < path.size(); ++i) {
        const QChar c = path.at(i);
        if (c == QLatin1Char('/') || c == QLatin1Char('.')) {
            steps.back().end = i;
            steps.push_back({c, QString(), 0});
        } else {
            steps.back().text += c;
        }
    }
    steps.back().end = path.size();
    return steps;
}

bool placeOf(const QString& text, int* place)
{
    bool ok = false;
    *place = text.toInt(&ok);
    return ok && *place >= 0;
}

// The rows from the root down to the first node of this name, in the order
// the tree shows them: a node's fields and the nodes they hold, then its
// children. A node used in several places is gone into where it is first
// met.
bool rowsToName(SoNode* root, const SbName& name, std::vector<int>* rows)
{
    struct Frame
    {
        SoNode* node;
        SoField* field;
        int next;
        int row;
    };
    std::vector<Frame> stack;
    std::unordered_set<SoNode*> seen;
    const auto enter = [&](SoNode* node, int row) -> bool {
        if (node->getRefCount() > 1 && !seen.insert(node).second)
            return false;
        stack.push_back({node, nullptr, 0, row});
        return node->getName() == name ? true : false;
    };
    bool found = enter(root, 0);
    while (!found && !stack.empty()) {
        Frame& top = stack.back();
        if (top.field) {
            const int row = top.next++;
            if (row >= SceneRows::heldCount(top.field)) {
                stack.pop_back();
            } else if (SoNode* held = SceneRows::heldAt(top.field, row)) {
                found = enter(held, row);
            }
            continue;
        }
        const int row = top.next++;
        if (row >= SceneRows::count(top.node)) {
            stack.pop_back();
        } else if (SoField* field = SceneRows::fieldAt(top.node, row)) {
            if (SceneRows::heldCount(field) > 0)
                stack.push_back({top.node, field, 0, row});
        } else {
            found = enter(SceneRows::childAt(top.node, row), row);
        }
    }
    if (!found)
        return false;
    for (size_t i = 1; i < stack.size(); ++i)
        rows->push_back(stack[i].row);
    return true;
}

// A name that a path can hold and read back as a name.
bool usableName(const SbName& name)
{
    const QString text = QString::fromUtf8(name.getString());
    int place = 0;
    return !text.isEmpty() && text.size() <= ScenePath::kMaxNameLength && !text.contains(QLatin1Char('/')) &&
           !text.contains(QLatin1Char('.')) && !placeOf(text, &place);
}

} // namespace

QModelIndex ScenePath::find(const SceneModel& model, const QString& path, QString* error)
{
    SoNode* root = model.root();
    if (!root) {
        *error = tr("There is no scene to select \"%1\" in.").arg(path);
        return QModelIndex();
    }
    const std::vector<Step> steps = stepsOf(path);
    for (const Step& step : steps) {
        if (step.text.size() > kMaxNameLength) {
            *error =
                tr("The name \"%1\" is %2 characters long; names of more than %3 characters are refused.")
                    .arg(shown(step.text))
                    .arg(step.text.size())
                    .arg(kMaxNameLength);
            return QModelIndex();
        }
    }

    // An empty name would stand for the root, so that "" and "." chose it
    // without a word; a dot promises a field.
    const bool fromRoot = path.startsWith(QLatin1Char('/'));
    if (!fromRoot && steps.front().text.isEmpty()) {
        *error = tr("The path \"%1\" names no node: give a node's name (Stone.diffuseColor) or its "
                    "places from the root (/3/1.diffuseColor).")
                     .arg(shown(path));
        return QModelIndex();
    }

    QModelIndex at = model.index(0, 0);
    if (!fromRoot) {
        std::vector<int> rows;
        if (!rowsToName(root, SbName(steps.front().text.toUtf8().constData()), &rows)) {
            *error = tr("The scene has no node \"%1\".").arg(shown(steps.front().text));
            return QModelIndex();
        }
        for (int row : rows)
            at = model.index(row, 0, at);
    }
    for (size_t i = 1; i < steps.size() && at.isValid(); ++i) {
        const Step& step = steps[i];
        auto* node = static_cast<SoNode*>(model.field(at) ? nullptr : model.container(at));
        SoField* holder = model.field(at);
        if (step.separator == QLatin1Char('.')) {
            const QString nodeText = path.left(steps[i - 1].end);
            if (step.text.isEmpty()) {
                *error = tr("The path \"%1\" names no field after its dot.").arg(shown(path));
                return QModelIndex();
            }
            SoField* field = node ? node->getField(SbName(step.text.toLatin1().constData())) : nullptr;
            at = model.fieldIndex(at, field);
            if (!at.isValid()) {
                *error = tr("The node \"%1\" has no field \"%2\".").arg(shown(nodeText), shown(step.text));
                return QModelIndex();
            }
            continue;
        }
        // "/" alone is the root, and a doubled slash is read as one.
        if (step.text.isEmpty())
            continue;
        int place = 0;
        QModelIndex next;
        if (placeOf(step.text, &place)) {
            if (holder && place < SceneRows::heldCount(holder))
                next = model.index(place, 0, at);
            else if (node && place < SceneRows::childCount(node))
                next = model.index(SceneRows::rowOfChild(node, place), 0, at);
        } else {
            const SbName name(step.text.toUtf8().constData());
            const int count = holder ? SceneRows::heldCount(holder) : SceneRows::childCount(node);
            for (int k = 0; k < count && !next.isValid(); ++k) {
                SoNode* candidate = holder ? SceneRows::heldAt(holder, k) : (*node->getChildren())[k];
                if (candidate && candidate->getName() == name)
                    next = model.index(holder ? k : SceneRows::rowOfChild(node, k), 0, at);
            }
        }
        if (!next.isValid()) {
            *error = tr("The scene has no node \"%1\".").arg(shown(path.left(step.end)));
            return QModelIndex();
        }
        at = next;
    }
    return at;
}

QString ScenePath::of(const SceneModel& model, const QModelIndex& row)
{
    // The way up, then the step into each row on the way down.
    std::vector<QModelIndex> way;
    for (QModelIndex at = row.siblingAtColumn(0); at.isValid(); at = at.parent())
        way.push_back(at);
    if (way.empty() || !model.root())
        return QString();
    std::reverse(way.begin(), way.end());
    QStringList steps{QString()};
    for (size_t i = 1; i < way.size(); ++i) {
        const QModelIndex& at = way[i];
        SoField* field = model.field(at);
        SoField* holder = model.field(way[i - 1]);
        if (field) {
            SbName name;
            model.container(at)->getFieldName(field, name);
            steps << (QLatin1Char('.') + QString::fromLatin1(name.getString()));
            continue;
        }
        auto* node = static_cast<SoNode*>(model.container(at));
        auto* parent = static_cast<SoNode*>(holder ? nullptr : model.container(way[i - 1]));
        const int place = holder ? at.row() : SceneRows::childPlace(parent, at.row());
        // A name tells the row apart when no other row beside it has it.
        bool named = node && usableName(node->getName());
        const int count = holder ? SceneRows::heldCount(holder) : SceneRows::childCount(parent);
        for (int k = 0; named && k < count; ++k) {
            SoNode* other = holder ? SceneRows::heldAt(holder, k) : (*parent->getChildren())[k];
            named = k == place || !other || other->getName() != node->getName();
        }
        steps << (QLatin1Char('/') +
                  (named ? QString::fromUtf8(node->getName().getString()) : QString::number(place)));
    }

    // From the highest node whose name is the scene's only one, where that
    // name leads to this very place (a node used twice is found where it is
    // first met).
    for (size_t i = 0; i < way.size(); ++i) {
        if (model.field(way[i]))
            continue;
        auto* node = static_cast<SoNode*>(model.container(way[i]));
        SoNodeList named;
        if (!node || !usableName(node->getName()) || SoNode::getByName(node->getName(), named) != 1)
            continue;
        const QString path =
            QString::fromUtf8(node->getName().getString()) + steps.mid(int(i) + 1).join(QString());
        QString error;
        if (find(model, path, &error) == row.siblingAtColumn(0))
            return path;
    }
    const QString fromRoot = steps.join(QString());
    return fromRoot.startsWith(QLatin1Char('/')) ? fromRoot : QLatin1Char('/') + fromRoot;
}
