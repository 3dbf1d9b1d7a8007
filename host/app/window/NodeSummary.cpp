#include "NodeSummary.h"

#include "FieldMarks.h"
#include "SceneRows.h"

#include <Inventor/SbName.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodes/SoNode.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include <QSizePolicy>
#include <QStringList>

#include <utility>
#include <vector>

namespace {

QString fieldName(SoNode* node, SoField* field)
{
    SbName name;
    node->getFieldName(field, name);
    return QString::fromLatin1(name.getString());
}

} // namespace

NodeSummary::NodeSummary(QWidget* parent)
    : QLabel(parent)
    , m_sensor(new SoNodeSensor(&NodeSummary::nodeChanged, this))
{
    setObjectName(QStringLiteral("NodeSummary"));
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMargin(6);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    // Its text wraps to whatever width the column has: a long path must
    // never widen the column into the 3D view.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // Delayed, so that a run of changes (a slider drag below a selected
    // group) is summarised once.
    m_sensor->setDeleteCallback(&NodeSummary::nodeGoes, this);
    hide();
}

NodeSummary::~NodeSummary()
{
    m_sensor->detach();
}

void NodeSummary::nodeChanged(void* data, SoSensor*)
{
    static_cast<NodeSummary*>(data)->refresh();
}

void NodeSummary::nodeGoes(void* data, SoSensor*)
{
    static_cast<NodeSummary*>(data)->showNode(nullptr, QString());
}

QString NodeSummary::plainText() const
{
    return m_plain;
}

QString NodeSummary::shortList(const QStringList& names, int total)
{
    QString text = names.mid(0, kShownNames).join(QStringLiteral(", "));
    if (total > kShownNames)
        text += tr(" and %1 more").arg(total - kShownNames);
    return text;
}

QString NodeSummary::fieldsLine(SoNode* node) const
{
    const int count = SceneRows::fieldCount(node);
    QStringList set;
    for (int row = 0; row < count; ++row) {
        SoField* field = SceneRows::fieldAt(node, row);
        if (FieldMarks::isSet(field))
            set << fieldName(node, field);
    }
    if (set.isEmpty())
        return tr("all %1 at their defaults").arg(count);
    return tr("%1 of %2 differ from their defaults: %3")
        .arg(set.size())
        .arg(count)
        .arg(shortList(set, set.size()));
}

QStringList NodeSummary::ignoredFields(SoNode* node)
{
    QStringList names;
    const int count = SceneRows::fieldCount(node);
    for (int row = 0; row < count; ++row) {
        SoField* field = SceneRows::fieldAt(node, row);
        if (field && field->isIgnored())
            names << fieldName(node, field);
    }
    return names;
}

QStringList NodeSummary::drivenFields(SoNode* node)
{
    QStringList lines;
    const int count = SceneRows::fieldCount(node);
    for (int row = 0; row < count; ++row) {
        SoField* field = SceneRows::fieldAt(node, row);
        const QString mark = FieldMarks::sourceMark(field);
        if (!mark.isEmpty())
            lines << fieldName(node, field) + QLatin1Char(' ') + mark;
    }
    return lines;
}

QStringList NodeSummary::drivingFields(SoNode* node)
{
    QStringList lines;
    const int count = SceneRows::fieldCount(node);
    for (int row = 0; row < count; ++row) {
        SoField* field = SceneRows::fieldAt(node, row);
        SoFieldList slaves;
        if (!field || field->getForwardConnections(slaves) == 0)
            continue;
        for (int i = 0; i < slaves.getLength(); ++i) {
            SoField* slave = slaves[i];
            SoFieldContainer* container = slave ? slave->getContainer() : nullptr;
            if (!container)
                continue;
            SbName name;
            container->getFieldName(slave, name);
            lines << fieldName(node, field) + QStringLiteral(" \u2192 ") +
                         FieldMarks::displayName(container) + QLatin1Char('.') +
                         QString::fromLatin1(name.getString());
        }
    }
    return lines;
}

QString NodeSummary::childrenLine(SoNode* node) const
{
    const int count = SceneRows::childCount(node);
    if (count == 0)
        return tr("none");
    const int first = SceneRows::fieldCount(node);
    QStringList names;
    for (int place = 0; place < count && place < kShownNames; ++place)
        names << FieldMarks::displayName(SceneRows::childAt(node, first + place));
    return tr("%1: %2").arg(count).arg(shortList(names, count));
}

void NodeSummary::showNode(SoNode* node, const QString& path)
{
    m_sensor->detach();
    m_path = path;
    if (node)
        m_sensor->attach(node);
    refresh();
}

void NodeSummary::refresh()
{
    SoNode* node = m_sensor->getAttachedNode();
    if (!node) {
        m_plain.clear();
        clear();
        hide();
        return;
    }
    const QString name = QString::fromUtf8(node->getName().getString());
    const QStringList ignored = ignoredFields(node);
    const QStringList driven = drivenFields(node);
    const QStringList driving = drivingFields(node);
    const std::vector<std::pair<QString, QString>> lines = {
        {tr("Type"), FieldMarks::typeName(node)},
        {tr("Name"), name.isEmpty() ? tr("(none)") : name},
        {tr("Path"), m_path},
        {tr("Fields"), fieldsLine(node)},
        {tr("Ignored"), ignored.isEmpty() ? tr("none") : shortList(ignored, ignored.size())},
        {tr("Driven"), driven.isEmpty() ? tr("none") : shortList(driven, driven.size())},
        {tr("Drives"), driving.isEmpty() ? tr("none") : shortList(driving, driving.size())},
        {tr("Children"), childrenLine(node)},
    };
    QStringList plain;
    QStringList rich;
    for (const auto& line : lines) {
        plain << line.first + QStringLiteral(": ") + line.second;
        rich << QStringLiteral("<b>%1</b> %2").arg(line.first.toHtmlEscaped(), line.second.toHtmlEscaped());
    }
    m_plain = plain.join(QLatin1Char('\n'));
    setText(rich.join(QStringLiteral("<br>")));
    setToolTip(m_plain);
    show();
}
