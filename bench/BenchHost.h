#pragma once
// The host window and the 100,000-node scene the host benchmarks share.
#include "BenchSupport.h"

#include <KalFieldSampler.h>
#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <KalShell.h>

#include <Inventor/Qt/SoQt.h>

#include <QFile>
#include <QMainWindow>
#include <QTemporaryDir>

#include <functional>

// Opening a scene frees the one before: the figures are those of a host
// that has done so before.
inline const bool kHostSteadyAllocator = steadyAllocator();

// A scene of 1,000 groups under one root, written once per run into a
// folder of its own; each group's body comes from writeGroup.
inline QString groupedScenePath(const char* name, const std::function<void(QFile&, int)>& writeGroup)
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QString::fromLatin1(name));
    if (QFile::exists(path))
        return path;
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write("#Inventor V2.1 ascii\nSeparator {\n");
    for (int group = 0; group < 1000; ++group) {
        file.write("Separator {\n");
        writeGroup(file, group);
        file.write("}\n");
    }
    file.write("}\n");
    return path;
}

// 1,000 groups of 99 nodes each, plus the groups and the root: 100,001
// nodes. Four of the cubes have names ("Marker0", "Marker333", ...), so that
// a name is found a few times.
inline QString hugeScenePath()
{
    return groupedScenePath("huge.iv", [](QFile& file, int group) {
        for (int i = 0; i < 99; ++i) {
            if (i == 49 && group % 333 == 0)
                file.write(QStringLiteral("DEF Marker%1 Cube { width 2 }\n").arg(group).toUtf8());
            else
                file.write((i % 2) ? "Cube { width 2 }\n" : "Material { diffuseColor 0.5 0.5 0.5 }\n");
        }
    });
}

// One shown host window without a 3D view, with the plug-in loaded and the
// docks in their default places, made on first use.
inline KalHostWindow& benchHost()
{
    static KalHostWindow* instance = [] {
        KalFieldSampler::initClass();
        SoQt::init(KalShell::getInstance()->getMainWindow());
        KalHostWindow::Options options;
        options.interactive = false;
        options.view = false;
        auto* window = new KalHostWindow(options);
        window->pluginLoaded(
            KalPluginsManager::getInstance()->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH)));
        window->arrangeDocks();
        window->window()->show();
        return window;
    }();
    return *instance;
}

// The same 100,000 nodes with geometry held in fields: 1,000 groups of 33
// materials, 33 point sets and the 33 VertexProperty nodes those hold in
// their vertexProperty field (four vertices each), plus the groups and the
// root. Four of the vertex lists have names ("Marker0", "Marker333", ...).
inline QString nestedScenePath()
{
    return groupedScenePath("nested.iv", [](QFile& file, int group) {
        for (int i = 0; i < 33; ++i) {
            file.write("Material { diffuseColor 0.5 0.5 0.5 }\nPointSet { vertexProperty ");
            if (i == 16 && group % 333 == 0)
                file.write(QStringLiteral("DEF Marker%1 ").arg(group).toUtf8());
            file.write("VertexProperty { vertex [ 0 0 0, 1 0 0, 1 1 0, 0 1 0 ] } }\n");
        }
    });
}
