#pragma once

#include <QLabel>
#include <QString>

#include <memory>

class SoNode;
class SoNodeSensor;
class SoSensor;

// What a selected node is, at a glance: its type, name and path, how many of
// its fields differ from their defaults, what drives its fields and what
// they drive, and its children. It stands under the selection caption,
// where the plug-in's editors would be if one edited nodes. It follows the
// node as it changes (an undo from the Edit menu, say) and lets go of it when
// the node goes.
class NodeSummary : public QLabel
{
    Q_OBJECT
    Q_DISABLE_COPY(NodeSummary)

public:
    explicit NodeSummary(QWidget* parent = nullptr);
    ~NodeSummary() override;

    // Shows the node (null: hides the summary).
    void showNode(SoNode* node, const QString& path);
    // The summary's lines as text, one per line.
    QString plainText() const;

    // How many names a list in the summary shows before it says "and N
    // more".
    static constexpr int kShownNames = 5;

private:
    void refresh();
    static void nodeChanged(void* data, SoSensor* sensor);
    static void nodeGoes(void* data, SoSensor* sensor);
    QString fieldsLine(SoNode* node) const;
    QString childrenLine(SoNode* node) const;
    static QStringList ignoredFields(SoNode* node);
    static QStringList drivenFields(SoNode* node);
    static QStringList drivingFields(SoNode* node);
    static QString shortList(const QStringList& names, int total);

    std::unique_ptr<SoNodeSensor> m_sensor;
    QString m_path;
    QString m_plain;
};
