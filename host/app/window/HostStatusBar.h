#pragma once

#include <QObject>
#include <QString>

class KalPlugin;
class QLabel;
class QMainWindow;
class SceneReadReport;
class SoNode;

// The window's status bar: what is selected on the left, the outcome of the
// last Open or Save and the plug-in's state on the right. Messages that the
// plug-ins show through the shell pass over the selection for a while.
class HostStatusBar : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(HostStatusBar)

public:
    explicit HostStatusBar(QMainWindow* window, QObject* parent = nullptr);
    // The bar belongs to the main window, which outlives the host's window
    // object; the labels go with this object.
    ~HostStatusBar() override;

    void showSelection(const QString& text);
    // With the files Coin did not find and the other problems it reported.
    void showOpened(const QString& file, SoNode* root, qint64 milliseconds, const SceneReadReport& report);
    void showSaved(const QString& file, SoNode* root, qint64 milliseconds);
    void showFailure(const QString& text);
    // A loaded plug-in, or none with the reason.
    void showPlugin(KalPlugin* plugin, const QString& error);

    // Nodes reachable from the root, each counted once however often it is
    // shared, without recursion: scenes may nest tens of thousands deep.
    static int countNodes(SoNode* root);

private:
    QLabel* m_selection;
    QLabel* m_document;
    QLabel* m_plugin;
};
