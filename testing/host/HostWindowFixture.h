#pragma once
// What the tests of kalhost's window share: the scene graph set up once, and
// for each test function a window on the sample scene with the real plug-in
// loaded, gone again afterwards.
#include <KalFieldSampler.h>
#include <KalHostWindow.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>

#include <QDockWidget>
#include <QMetaType>
#include <QObject>
#include <QTemporaryDir>

#include <memory>

Q_DECLARE_METATYPE(SoField*)
Q_DECLARE_METATYPE(SoFieldContainer*)

// A test class derives from it and adds only its checks: the fixture's
// initTestCase(), init() and cleanup() run as the test's own.
class HostWindowFixture : public QObject
{
    Q_OBJECT

public:
    // With `viewOnX`, the window has its 3D view where there is an X server
    // to draw on.
    explicit HostWindowFixture(bool viewOnX = false);

protected slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    QDockWidget* fieldDock() const;
    // The sample scene's node with a field of every edited type.
    static KalFieldSampler* sampler();
    // Selects a float field and types a value into its editor, Return.
    void typeIntoFloatEditor(const QString& path, const QString& text);
    static void writeFile(const QString& path, const QByteArray& bytes);

    std::unique_ptr<KalHostWindow> m_host;
    // A folder of the test's own for the files it writes.
    QTemporaryDir m_dir;

private:
    bool m_viewOnX;
};
