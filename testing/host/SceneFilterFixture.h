#pragma once
// What the tests of the filter box share: the host's window, and the box,
// the tree in sight and its rows as a person sees and clicks them.
#include "HostWindowFixture.h"

#include <QLineEdit>
#include <QModelIndex>
#include <QStringList>
#include <QTreeView>

class SceneFilterBox;

class SceneFilterFixture : public HostWindowFixture
{
    Q_OBJECT

protected:
    QLineEdit* filter() const;
    SceneFilterBox* box() const;
    // Types a filter text as a person would.
    void typeFilter(const QString& text);
    // The tree in sight: the filtered one while a text is set.
    QTreeView* shownTree() const;
    // The names of the rows in sight, top to bottom.
    QStringList shownRows() const;
    // A row of the scene model, and where the tree in sight shows it.
    QModelIndex row(const QString& path) const;
    QModelIndex shown(const QModelIndex& sceneRow) const;
    // The scene model's row for one of the tree in sight.
    QModelIndex sceneRow(const QModelIndex& shownRow) const;
    void clickRow(const QModelIndex& sceneRow);
};
