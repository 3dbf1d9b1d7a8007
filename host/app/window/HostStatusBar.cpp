#include "HostStatusBar.h"

#include "SceneReadReport.h"

#include <KalPlugin.h>

#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QSet>
#include <QStatusBar>

#include <vector>

namespace {
QLabel* addLabel(QStatusBar* bar, const char* name, bool permanent)
{
    auto* label = new QLabel(bar);
    label->setObjectName(QLatin1String(name));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (permanent)
        bar->addPermanentWidget(label);
    else
        bar->addWidget(label, 1);
    return label;
}

QString documentText(const QString& what, const QString& file, SoNode* root, qint64 milliseconds)
{
    const QLocale locale;
    const int nodes = HostStatusBar::countNodes(root);
    return QObject::tr("%1 %2: %3 nodes in %4 ms")
        .arg(what, file, locale.toString(nodes), locale.toString(milliseconds));
}
} // namespace

HostStatusBar::HostStatusBar(QMainWindow* window, QObject* parent)
    : QObject(parent)
{
    QStatusBar* bar = window->statusBar();
    bar->setObjectName(QStringLiteral("HostStatusBar"));
    m_selection = addLabel(bar, "StatusSelection", false);
    m_document = addLabel(bar, "StatusDocument", true);
    m_plugin = addLabel(bar, "StatusPlugin", true);
    showSelection(QString());
    showPlugin(nullptr, tr("none loaded"));
}

HostStatusBar::~HostStatusBar()
{
    delete m_selection;
    delete m_document;
    delete m_plugin;
}

int HostStatusBar::countNodes(SoNode* root)
{
    if (!root)
        return 0;
    QSet<SoNode*> seen;
    std::vector<SoNode*> pending{root};
    while (!pending.empty()) {
        SoNode* node = pending.back();
        pending.pop_back();
        if (seen.contains(node))
            continue;
        seen.insert(node);
        if (SoChildList* children = node->getChildren()) {
            for (int i = 0; i < children->getLength(); ++i)
                pending.push_back((*children)[i]);
        }
    }
    return seen.size();
}

void HostStatusBar::showSelection(const QString& text)
{
    m_selection->setText(text.isEmpty() ? tr("Nothing selected") : text);
}

void HostStatusBar::showOpened(const QString& file, SoNode* root, qint64 milliseconds,
                               const SceneReadReport& report)
{
    // What Coin could not find or read is counted here and said in full in
    // the Console and the tooltip: a scene with missing parts must not look
    // like a whole one.
    QString text = documentText(tr("Opened"), file, root, milliseconds);
    const QLocale locale;
    const int missing = report.missingFiles();
    if (missing > 0)
        text += missing == 1 ? tr(", 1 file not found")
                             : tr(", %1 files not found").arg(locale.toString(missing));
    const int others = report.otherProblems();
    if (others > 0)
        text +=
            others == 1 ? tr(", 1 other problem") : tr(", %1 other problems").arg(locale.toString(others));
    m_document->setText(text);
    QStringList tip{file};
    tip << report.problems();
    m_document->setToolTip(tip.join(QLatin1Char('\n')));
}

void HostStatusBar::showSaved(const QString& file, SoNode* root, qint64 milliseconds)
{
    m_document->setText(documentText(tr("Saved"), file, root, milliseconds));
    m_document->setToolTip(file);
}

void HostStatusBar::showFailure(const QString& text)
{
    // Messages about bad files run over several lines; the bar shows the
    // first, the tooltip all of them.
    m_document->setText(text.section(QLatin1Char('\n'), 0, 0));
    m_document->setToolTip(text);
}

void HostStatusBar::showPlugin(KalPlugin* plugin, const QString& error)
{
    if (!plugin) {
        m_plugin->setText(tr("Plug-in: %1").arg(error));
        return;
    }
    m_plugin->setText(
        tr("Plug-in %1 %2: %3 extensions")
            .arg(QString::fromUtf8(plugin->name.getString()), QString::fromUtf8(plugin->version.getString()))
            .arg(plugin->getExtensions().size()));
}
