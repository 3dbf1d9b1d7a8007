// A field's state at a glance in kalhost's scene tree: set fields stand out
// from those at their defaults, ignored ones are slanted and greyed, a
// driven one says where its value comes from (and the caption that edits do
// not last), and nodes of unknown types go by the name their file gave them.
// The marks follow edits made through the plug-in's editors.
#include "HostWindowFixture.h"
#include "MarksScene.h"

#include <SceneModel.h>

#include <QAbstractItemModel>
#include <QColor>
#include <QFont>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeView>
#include <QtTest>

class tst_HostFieldMarks : public HostWindowFixture
{
    Q_OBJECT

private slots:
    void init();

    void setFieldsStandOut_data();
    void setFieldsStandOut();
    void ignoredFieldIsMarked();
    void drivenFieldSaysWhereFrom_data();
    void drivenFieldSaysWhereFrom();
    void captionSaysEditsToADrivenFieldAreOverwritten();
    void undrivenFieldHasNoDrivenNote();
    void unknownNodeGoesByItsFileName();
    void anEditMakesTheFieldStandOut();
    void ignoringInTheEditorMarksTheField();

private:
    // The selected row's cell in a column, after selecting the path.
    QModelIndex cellOf(const QString& path, int column);
    QLabel* caption() const;
    // Whether the model told its views that this row's font may have changed.
    static bool fontChangeAnnounced(const QSignalSpy& spy, const QModelIndex& cell);
};

void tst_HostFieldMarks::init()
{
    HostWindowFixture::init();
    if (QTest::currentTestFailed())
        return;
    const QString path = m_dir.filePath(QStringLiteral("marks.iv"));
    writeFile(path, MarksScene::kText);
    QVERIFY(m_host->openScene(path));
}

QModelIndex tst_HostFieldMarks::cellOf(const QString& path, int column)
{
    if (!m_host->select(path))
        return QModelIndex();
    return m_host->tree()->currentIndex().siblingAtColumn(column);
}

QLabel* tst_HostFieldMarks::caption() const
{
    return m_host->window()->findChild<QLabel*>(QStringLiteral("SelectionCaption"));
}

bool tst_HostFieldMarks::fontChangeAnnounced(const QSignalSpy& spy, const QModelIndex& cell)
{
    for (const QList<QVariant>& change : spy) {
        const auto topLeft = change.at(0).value<QModelIndex>();
        const auto bottomRight = change.at(1).value<QModelIndex>();
        const auto roles = change.at(2).value<QVector<int>>();
        if (topLeft.parent() == cell.parent() && topLeft.row() <= cell.row() &&
            cell.row() <= bottomRight.row() && topLeft.column() <= cell.column() &&
            cell.column() <= bottomRight.column() && (roles.isEmpty() || roles.contains(Qt::FontRole)))
            return true;
    }
    return false;
}

void tst_HostFieldMarks::setFieldsStandOut_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("set");
    QTest::addColumn<QString>("tip");
    QTest::newRow("set in the file") << "Moved.scaleFactor" << true << "Set in the file or by an edit.";
    QTest::newRow("at its default") << "Moved.rotation" << false << "At its default.";
    QTest::newRow("default node") << "Detail.value" << false << "At its default.";
    QTest::newRow("unknown node's field") << "/5.size" << true << "Set in the file or by an edit.";
}

void tst_HostFieldMarks::setFieldsStandOut()
{
    QFETCH(QString, path);
    QFETCH(bool, set);
    QFETCH(QString, tip);
    const QModelIndex name = cellOf(path, SceneModel::NameColumn);
    QVERIFY(name.isValid());
    QCOMPARE(name.data(Qt::FontRole).value<QFont>().bold(), set);
    // The value beside it is left plain.
    QVERIFY(!name.siblingAtColumn(SceneModel::ValueColumn).data(Qt::FontRole).value<QFont>().bold());
    QCOMPARE(name.data(Qt::FontRole).value<QFont>().italic(), false);
    QVERIFY(!name.data(Qt::ForegroundRole).isValid());
    QVERIFY2(name.data(Qt::ToolTipRole).toString().startsWith(tip),
             qPrintable(name.data(Qt::ToolTipRole).toString()));
    // The name itself is left as it is: paths are made of it.
    QCOMPARE(name.data().toString(), path.section(QLatin1Char('.'), -1));
}

void tst_HostFieldMarks::ignoredFieldIsMarked()
{
    const QModelIndex name = cellOf(QStringLiteral("Skipped.diffuseColor"), SceneModel::NameColumn);
    QVERIFY(name.isValid());
    QVERIFY(name.data(Qt::FontRole).value<QFont>().italic());
    QCOMPARE(name.data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::gray));
    QVERIFY(name.siblingAtColumn(SceneModel::ValueColumn).data(Qt::FontRole).value<QFont>().italic());
    QVERIFY2(name.data(Qt::ToolTipRole).toString().contains(QStringLiteral("Ignored")),
             qPrintable(name.data(Qt::ToolTipRole).toString()));

    // Its neighbour, not ignored, is upright.
    const QModelIndex other = cellOf(QStringLiteral("Skipped.shininess"), SceneModel::NameColumn);
    QVERIFY(!other.data(Qt::FontRole).value<QFont>().italic());
    QVERIFY(!other.data(Qt::ToolTipRole).toString().contains(QStringLiteral("Ignored")));
}

void tst_HostFieldMarks::drivenFieldSaysWhereFrom_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("source");
    QTest::newRow("a named engine") << "Moved.translation" << QStringLiteral("\u2190 Mover.vector");
    QTest::newRow("an unnamed engine") << "Drifter.center" << QStringLiteral("\u2190 ComposeVec3f.vector");
    QTest::newRow("another node's field") << "Follower.rotation" << QStringLiteral("\u2190 Moved.rotation");
}

void tst_HostFieldMarks::drivenFieldSaysWhereFrom()
{
    QFETCH(QString, path);
    QFETCH(QString, source);
    const QModelIndex value = cellOf(path, SceneModel::ValueColumn);
    QVERIFY(value.isValid());
    QVERIFY2(value.data().toString().startsWith(source + QStringLiteral(": ")),
             qPrintable(value.data().toString()));
    QVERIFY(value.data(Qt::ToolTipRole).toString().startsWith(source));
    const QString tip = value.siblingAtColumn(SceneModel::NameColumn).data(Qt::ToolTipRole).toString();
    QVERIFY2(tip.contains(QStringLiteral("overwritten")), qPrintable(tip));
}

void tst_HostFieldMarks::captionSaysEditsToADrivenFieldAreOverwritten()
{
    QVERIFY(caption());
    QVERIFY(m_host->select(QStringLiteral("Moved.translation")));
    const QString text = caption()->text();
    QVERIFY2(text.contains(QStringLiteral("Driven by Mover.vector")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("edits to it are overwritten while the connection holds")),
             qPrintable(text));
    QVERIFY(caption()->toolTip().contains(QStringLiteral("Driven by Mover.vector")));
}

void tst_HostFieldMarks::undrivenFieldHasNoDrivenNote()
{
    QVERIFY(caption());
    QVERIFY(m_host->select(QStringLiteral("Moved.translation")));
    QVERIFY(m_host->select(QStringLiteral("Moved.scaleFactor")));
    QVERIFY(!caption()->text().contains(QStringLiteral("Driven")));
    const QModelIndex value = cellOf(QStringLiteral("Moved.scaleFactor"), SceneModel::ValueColumn);
    QCOMPARE(value.data().toString(), QStringLiteral("2 2 2"));
    // A node row says nothing of drivers either.
    QVERIFY(m_host->select(QStringLiteral("Moved")));
    QVERIFY(!caption()->text().contains(QStringLiteral("Driven")));
}

void tst_HostFieldMarks::unknownNodeGoesByItsFileName()
{
    const QModelIndex named = cellOf(QStringLiteral("Named"), SceneModel::TypeColumn);
    QVERIFY(named.isValid());
    QCOMPARE(named.data().toString(), QStringLiteral("MyNode"));
    QCOMPARE(named.siblingAtColumn(SceneModel::NameColumn).data().toString(), QStringLiteral("Named"));
    QVERIFY2(caption()->text().contains(QStringLiteral("MyNode")), qPrintable(caption()->text()));
    QVERIFY(!caption()->text().contains(QStringLiteral("UnknownNode")));

    // Without a name of its own, the row goes by the file's type name too.
    const QModelIndex unnamed = cellOf(QStringLiteral("/5"), SceneModel::NameColumn);
    QVERIFY(unnamed.isValid());
    QCOMPARE(unnamed.data().toString(), QStringLiteral("MyNode"));
    QCOMPARE(unnamed.siblingAtColumn(SceneModel::TypeColumn).data().toString(), QStringLiteral("MyNode"));

    // Its caption names the file's type; its path, as --select takes it,
    // goes by its place.
    QVERIFY(m_host->select(QStringLiteral("/5")));
    QVERIFY2(caption()->text().contains(QStringLiteral("MyNode")), qPrintable(caption()->text()));
    QVERIFY(!caption()->text().contains(QStringLiteral("UnknownNode")));
}

void tst_HostFieldMarks::anEditMakesTheFieldStandOut()
{
    const QModelIndex name = cellOf(QStringLiteral("Detail.value"), SceneModel::NameColumn);
    QVERIFY(name.isValid());
    QVERIFY(!name.data(Qt::FontRole).value<QFont>().bold());
    QSignalSpy changes(m_host->sceneModel(), &QAbstractItemModel::dataChanged);

    typeIntoFloatEditor(QStringLiteral("Detail.value"), QStringLiteral("0.25"));
    if (QTest::currentTestFailed())
        return;
    // The tree is told, so that it draws the row again.
    QTRY_VERIFY(fontChangeAnnounced(changes, name));
    QVERIFY(name.data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(
        name.data(Qt::ToolTipRole).toString().startsWith(QStringLiteral("Set in the file or by an edit.")));
    QCOMPARE(name.siblingAtColumn(SceneModel::ValueColumn).data().toString(), QStringLiteral("0.25"));
}

void tst_HostFieldMarks::ignoringInTheEditorMarksTheField()
{
    const QModelIndex name = cellOf(QStringLiteral("Detail.value"), SceneModel::NameColumn);
    QVERIFY(name.isValid());
    QVERIFY(!name.data(Qt::FontRole).value<QFont>().italic());
    auto* ignore = fieldDock()->findChild<QPushButton*>(QStringLiteral("m_ignoreButton"));
    QVERIFY(ignore);
    QSignalSpy changes(m_host->sceneModel(), &QAbstractItemModel::dataChanged);

    QTest::mouseClick(ignore, Qt::LeftButton);
    QTRY_VERIFY(fontChangeAnnounced(changes, name));
    QVERIFY(name.data(Qt::FontRole).value<QFont>().italic());
    QCOMPARE(name.data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::gray));

    // Clicked again, the field is upright again.
    changes.clear();
    QTest::mouseClick(ignore, Qt::LeftButton);
    QTRY_VERIFY(fontChangeAnnounced(changes, name));
    QVERIFY(!name.data(Qt::FontRole).value<QFont>().italic());
}

QTEST_MAIN(tst_HostFieldMarks)
#include "tst_HostFieldMarks.moc"
