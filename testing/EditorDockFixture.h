#pragma once
// What the editor tests share: the real plug-in loaded into the stand-in
// host, a fresh node with a field of every type for each test function, the
// "Field Editor" dock and the editor's widgets found by their object names.
#include "AllFieldsNode.h"

#include <QDockWidget>
#include <QObject>
#include <QSize>

class SoField;

// A test class derives from it and adds only its checks: the fixture's
// initTestCase(), init() and cleanup() run as the test's own. A test that
// needs more set-up declares its own slot and calls the fixture's first.
class EditorDockFixture : public QObject
{
    Q_OBJECT

public:
    // With a valid size, init() shows the host's main window at that size
    // before each test function, for the editors that must be laid out.
    explicit EditorDockFixture(QSize windowSize = QSize());

    // The real plug-in module loaded into the host, and with a valid size the
    // main window shown at it. False, with a warning, when either fails.
    static bool loadPlugin(QSize windowSize = QSize());
    // Nothing selected, every plug-in unloaded and an empty history, as at
    // the host's start.
    static void unloadPlugin();

    static QDockWidget* dock();
    // The plug-in module carries its own copy of the editor classes, whose
    // meta-objects are not the test's: its objects are found by name and
    // class name rather than by qobject_cast.
    template <class T>
    static T* child(const QString& name, QObject* within = nullptr);

    // Shows the field in the dock as the host does when the user selects it,
    // and lets the editor draw.
    static void select(SoField* field);
    // The same in the shown main window, once it is on the screen and the
    // editor laid out.
    static bool selectShown(SoField* field);
    // The same in a main window wide enough for every component, and an
    // empty history: filling an editor's boxes may write through them.
    static void selectInWindow(SoField* field);

protected slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    AllFieldsNode* m_node = nullptr;

private:
    QSize m_windowSize;
};

template <class T>
T* EditorDockFixture::child(const QString& name, QObject* within)
{
    QObject* parent = within ? within : dock();
    if (!parent)
        return nullptr;
    for (QObject* object : parent->findChildren<QObject*>(name)) {
        if (object->inherits(T::staticMetaObject.className()))
            return static_cast<T*>(object);
    }
    return nullptr;
}
