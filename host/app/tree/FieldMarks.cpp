#include "FieldMarks.h"

#include <Inventor/SbName.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/engines/SoNodeEngine.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/nodes/SoNode.h>

#include <QFont>
#include <QHash>
#include <QRegularExpression>

#include <cstdlib>
#include <utility>

namespace {

void* growBuffer(void* buffer, size_t size)
{
    return std::realloc(buffer, size);
}

// Coin keeps the class name an unknown node was read with to itself and
// writes it back out: the node's own text starts with it.
QString writtenClassName(SoNode* node)
{
    SoOutput output;
    const size_t start = 1024;
    output.setBuffer(std::malloc(start), start, growBuffer);
    SoWriteAction write(&output);
    write.apply(node);
    void* buffer = nullptr;
    size_t size = 0;
    output.getBuffer(buffer, size);
    const QString text = QString::fromUtf8(static_cast<const char*>(buffer), int(size));
    std::free(buffer);
    // Past the header line and a DEF with its name, the first word is the
    // class's.
    static const QRegularExpression word(
        QStringLiteral("^\\s*(?:#[^\\n]*\\n\\s*)*(?:DEF\\s+\\S+\\s+)?([^\\s{]+)"));
    const QRegularExpressionMatch match = word.match(text);
    return match.hasMatch() ? match.captured(1) : QString();
}

// An unknown node is written out once to learn its name; the answer is kept
// for as long as the node is the one that was asked about.
QString unknownTypeName(SoNode* node)
{
    static QHash<const SoNode*, std::pair<SbUniqueId, QString>> known;
    auto found = known.find(node);
    if (found != known.end() && found->first == node->getNodeId())
        return found->second;
    const QString name = writtenClassName(node);
    known.insert(node, {node->getNodeId(), name});
    return name;
}

QString containerAndMember(SoFieldContainer* container, const SbName& member)
{
    return FieldMarks::displayName(container) + QLatin1Char('.') + QString::fromLatin1(member.getString());
}

} // namespace

bool FieldMarks::isSet(const SoField* field)
{
    return field && !field->isDefault();
}

QString FieldMarks::source(SoField* field)
{
    if (!field || !field->isConnected())
        return QString();
    SoEngineOutput* output = nullptr;
    if (field->getConnectedEngine(output) && output) {
        SoFieldContainer* container = output->getFieldContainer();
        SbName name;
        if (container && container->isOfType(SoEngine::getClassTypeId()))
            static_cast<SoEngine*>(container)->getOutputName(output, name);
        else if (container && container->isOfType(SoNodeEngine::getClassTypeId()))
            static_cast<SoNodeEngine*>(container)->getOutputName(output, name);
        return container ? containerAndMember(container, name) : QString();
    }
    SoField* master = nullptr;
    if (field->getConnectedField(master) && master && master->getContainer()) {
        SbName name;
        master->getContainer()->getFieldName(master, name);
        return containerAndMember(master->getContainer(), name);
    }
    return QString();
}

QString FieldMarks::sourceMark(SoField* field)
{
    const QString from = source(field);
    return from.isEmpty() ? QString() : QChar(0x2190) + QLatin1Char(' ') + from;
}

QString FieldMarks::drivenNote(SoField* field)
{
    const QString from = source(field);
    if (from.isEmpty())
        return QString();
    if (!field->isConnectionEnabled())
        return tr("Connected from %1, the connection switched off: edits stay.").arg(from);
    return tr("Driven by %1: edits to it are overwritten while the connection holds.").arg(from);
}

QString FieldMarks::stateText(SoField* field)
{
    if (!field)
        return QString();
    QStringList lines;
    lines << (isSet(field) ? tr("Set in the file or by an edit.") : tr("At its default."));
    if (field->isIgnored())
        lines << tr("Ignored: the nodes below take this value from the nodes above.");
    const QString driven = drivenNote(field);
    if (!driven.isEmpty())
        lines << driven;
    return lines.join(QLatin1Char('\n'));
}

QFont FieldMarks::font(SoField* field, const QFont& base)
{
    QFont font = base;
    font.setBold(isSet(field));
    font.setItalic(field && field->isIgnored());
    return font;
}

QString FieldMarks::typeName(SoFieldContainer* container)
{
    if (!container)
        return QString();
    const SoType type = container->getTypeId();
    static const SoType unknown = SoType::fromName("UnknownNode");
    if (type == unknown && container->isOfType(SoNode::getClassTypeId())) {
        const QString name = unknownTypeName(static_cast<SoNode*>(container));
        if (!name.isEmpty())
            return name;
    }
    return QString::fromLatin1(type.getName().getString());
}

QString FieldMarks::displayName(SoFieldContainer* container)
{
    if (!container)
        return QString();
    const QString name = QString::fromUtf8(container->getName().getString());
    return name.isEmpty() ? typeName(container) : name;
}
