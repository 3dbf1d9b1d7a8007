#include "SceneFilterFixture.h"

#include <SceneFilterBox.h>
#include <SceneFilterModel.h>
#include <SceneModel.h>
#include <ScenePath.h>

#include <QMainWindow>
#include <QtTest>

QLineEdit* SceneFilterFixture::filter() const
{
    return m_host->window()->findChild<QLineEdit*>(QStringLiteral("SceneFilter"));
}

SceneFilterBox* SceneFilterFixture::box() const
{
    return m_host->window()->findChild<SceneFilterBox*>();
}

void SceneFilterFixture::typeFilter(const QString& text)
{
    QLineEdit* edit = filter();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    // The rows follow once typing pauses, without Return: callers wait for
    // them.
    QTest::keyClicks(edit, text);
}

QTreeView* SceneFilterFixture::shownTree() const
{
    QTreeView* filtered = box()->filteredTree();
    return filtered->isHidden() ? m_host->tree() : filtered;
}

QStringList SceneFilterFixture::shownRows() const
{
    QTreeView* tree = shownTree();
    QStringList names;
    for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at))
        names << at.data().toString();
    return names;
}

QModelIndex SceneFilterFixture::shown(const QModelIndex& sceneRow) const
{
    return shownTree() == m_host->tree() ? sceneRow : box()->filteredModel()->mapFromSource(sceneRow);
}

QModelIndex SceneFilterFixture::sceneRow(const QModelIndex& shownRow) const
{
    return shownTree() == m_host->tree() ? shownRow : box()->filteredModel()->mapToSource(shownRow);
}

QModelIndex SceneFilterFixture::row(const QString& path) const
{
    QString error;
    const QModelIndex index = ScenePath::find(*m_host->sceneModel(), path, &error);
    if (!index.isValid())
        qWarning() << error;
    return index;
}

void SceneFilterFixture::clickRow(const QModelIndex& sceneRow)
{
    QTreeView* tree = shownTree();
    const QModelIndex index = shown(sceneRow);
    QVERIFY(index.isValid());
    tree->scrollTo(index);
    const QRect rect = tree->visualRect(index);
    QVERIFY(rect.isValid());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
}
