#pragma once
// Scenes the tests of kalhost's files write, and what they read back from
// a saved file with Coin alone, apart from the host.
#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoNode.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QByteArray>
#include <QFile>
#include <QString>

namespace SceneFileTesting {

// A scene with a camera of its own, 50 units in front of a red cube.
inline const QByteArray kCameraScene = "#Inventor V2.1 ascii\n"
                                       "Separator {\n"
                                       "  DEF FileCamera PerspectiveCamera { position 0 0 50 }\n"
                                       "  DEF Red Material { diffuseColor 1 0 0 }\n"
                                       "  Cube { width 3 }\n"
                                       "}\n";

// An image of 2 by 2 pixels of three components, written in the scene.
inline const QByteArray kTextureScene =
    "#Inventor V2.1 ascii\n"
    "Separator {\n"
    "  DEF Inline Texture2 { image 2 2 3 0xff0000 0x00ff00 0x0000ff 0xffffff }\n"
    "  Cube { }\n"
    "}\n";

// The first bytes of a file, such as its header.
inline QByteArray fileStart(const QString& path, int length)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(length) : QByteArray();
}

// Every field of the named node in a scene read by Coin alone, as text.
inline QString nodeText(const QString& path, const char* name)
{
    SoInput input;
    if (!input.openFile(QFile::encodeName(path).constData()))
        return QStringLiteral("(unreadable)");
    SoSeparator* root = SoDB::readAll(&input);
    if (!root)
        return QStringLiteral("(unreadable)");
    root->ref();
    SoNode* node = SoNode::getByName(name);
    SbString text;
    if (node)
        node->get(text);
    const QString result = node ? QString::fromUtf8(text.getString()) : QStringLiteral("(no node)");
    root->unref();
    return result;
}

// A node's fields as Coin writes them.
inline QString nodeFields(SoNode* node)
{
    SbString text;
    node->get(text);
    return QString::fromUtf8(text.getString());
}

} // namespace SceneFileTesting
