// The host application's window and its files, with the real plug-in:
// editing, saving and reopening, bad files, the file menu and its recent
// files, and what happens to the history when the scene is replaced.
#include "FieldTesting.h"
#include "HostWindowFixture.h"
#include "TableTesting.h"
#include <KalFieldSampler.h>
#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalProfileSetting.h>
#include <KalServices.h>
#include <KalShell.h>
#include <ProfileFile.h>
#include <SceneModel.h>
#include <SoKalExtensions.h>

#include <Inventor/Qt/SoQt.h>
#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/SoDB.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodes/SoNode.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTreeView>
#include <QUndoStack>
#include <QtTest>

#include <algorithm>
#include <iterator>

#include <memory>

namespace {

// Coin reads doubles back one unit in the last place off now and then
// (0.7500000000000001 comes back as ...02); doubles are compared to 15
// digits, everything else as written.
QString comparable(SoField* field)
{
    const QString text = fieldText(field);
    const QByteArray type(field->getTypeId().getName().getString());
    if (type != "SFDouble" && type != "MFDouble")
        return text;
    QStringList numbers;
    for (QString number : text.split(QRegularExpression(QStringLiteral("[\\s,\\[\\]]+")), Qt::SkipEmptyParts))
        numbers << QString::number(number.toDouble(), 'g', 15);
    return numbers.join(QLatin1Char(' '));
}

// Every field of the scene by its path, with its value text.
void collectValues(SceneModel* model, const QModelIndex& parent, const QString& path,
                   QMap<QString, QString>* out)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const QString here = path + QLatin1Char('/') + model->data(index).toString();
        if (SoField* field = model->field(index))
            out->insert(here, comparable(field));
        else
            collectValues(model, index, here, out);
    }
}

} // namespace

class tst_HostFiles : public HostWindowFixture
{
    Q_OBJECT

private slots:
    void editSaveReopen();
    void badFilesKeepTheSceneOpen_data();
    void badFilesKeepTheSceneOpen();
    void replacingTheSceneEmptiesTheHistory();
    void unsavedChangesAreAskedAbout();
    void fileMenuAsksForItsFiles();
    void recentFilesReopen();
};

void tst_HostFiles::editSaveReopen()
{
    const QString path = m_dir.filePath(QStringLiteral("edited.iv"));
    QVERIFY(m_host->saveScene(path));
    QVERIFY(m_host->openScene(path));
    QMap<QString, QString> before;
    collectValues(m_host->sceneModel(), QModelIndex(), QString(), &before);

    typeIntoFloatEditor(QStringLiteral("Sampler.opacity"), QStringLiteral("0.125"));
    if (QTest::currentTestFailed())
        return;
    QVERIFY(m_host->hasUnsavedChanges());
    QVERIFY(m_host->window()->windowTitle().contains(QLatin1Char('*')));
    QVERIFY(m_host->saveScene(path));
    QVERIFY(!m_host->hasUnsavedChanges());

    QVERIFY(m_host->openScene(path));
    QMap<QString, QString> after;
    collectValues(m_host->sceneModel(), QModelIndex(), QString(), &after);
    QCOMPARE(after.size(), before.size());
    const QString opacity = QStringLiteral("/Separator/Sampler/opacity");
    QCOMPARE(after.value(opacity), QStringLiteral("0.125"));
    before.insert(opacity, QStringLiteral("0.125"));
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        QCOMPARE(after.value(it.key()), it.value());
}

void tst_HostFiles::badFilesKeepTheSceneOpen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "missing.iv" << QByteArray() << "there is no such file";
    QTest::newRow("empty") << "empty.iv" << QByteArray("") << "the file is empty";
    QTest::newRow("binary") << "binary.iv"
                            << QByteArray("\x7f"
                                          "ELF\x02\x01\x01\0\0\0\xff\xfe",
                                          12)
                            << "does not start with a scene file header";
    QTest::newRow("syntax") << "syntax.iv" << QByteArray("#Inventor V2.1 ascii\nSeparator { Cube { width } ")
                            << "Cannot read";
    QTest::newRow("header only") << "header.iv" << QByteArray("#Inventor V2.1 ascii\n")
                                 << "it holds no scene";
}

void tst_HostFiles::badFilesKeepTheSceneOpen()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const QString path = m_dir.filePath(name);
    if (name != QLatin1String("missing.iv"))
        writeFile(path, bytes);
    SoNode* before = m_host->sceneModel()->root();
    QVERIFY(!m_host->openScene(path));
    QVERIFY2(m_host->lastError().contains(path), qPrintable(m_host->lastError()));
    QVERIFY2(m_host->lastError().contains(reason), qPrintable(m_host->lastError()));
    QCOMPARE(m_host->sceneModel()->root(), before);
    // Still usable: the sample's fields can be selected and edited.
    QVERIFY(m_host->select(QStringLiteral("Sampler.opacity")));
    QCOMPARE(fieldDock()->widget()->objectName(), QStringLiteral("FxSFFloatWidget"));
}

void tst_HostFiles::replacingTheSceneEmptiesTheHistory()
{
    typeIntoFloatEditor(QStringLiteral("Sampler.opacity"), QStringLiteral("0.5"));
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    // The old scene is freed with its fields; its commands must not outlive it.
    const QString path = m_dir.filePath(QStringLiteral("other.iv"));
    writeFile(path, "#Inventor V2.1 ascii\nDEF Other Material { diffuseColor 1 0 0 }\n");
    QVERIFY(m_host->openScene(path));
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    QVERIFY(!KalServices::getInstance()->undo());
    QVERIFY(!KalServices::getInstance()->redo());
    m_host->window()->findChild<QAction*>(QStringLiteral("UndoAction"))->trigger();
    m_host->window()->findChild<QAction*>(QStringLiteral("RedoAction"))->trigger();
    QVERIFY(fieldDock()->isHidden());
    QVERIFY(m_host->select(QStringLiteral("Other.diffuseColor")));
    SoDB::getSensorManager()->processDelayQueue(FALSE);
}

void tst_HostFiles::unsavedChangesAreAskedAbout()
{
    int asked = 0;
    bool answer = false;
    m_host->setDiscardQuestion([&] {
        ++asked;
        return answer;
    });
    m_host->window()->close();
    QCOMPARE(asked, 0);
    m_host->window()->show();
    typeIntoFloatEditor(QStringLiteral("Sampler.opacity"), QStringLiteral("0.3"));
    if (QTest::currentTestFailed())
        return;
    QVERIFY(m_host->hasUnsavedChanges());
    QVERIFY(!m_host->window()->close());
    QCOMPARE(asked, 1);
    QVERIFY(m_host->window()->isVisible());
    answer = true;
    QVERIFY(m_host->window()->close());
    QCOMPARE(asked, 2);
}

void tst_HostFiles::fileMenuAsksForItsFiles()
{
    using Question = KalHostWindow::FileQuestion;
    // No directory remembered yet: a scene without a file starts at home.
    QSettings().remove(QStringLiteral("lastDirectory"));
    QList<QPair<Question, QString>> asked;
    QString answer;
    m_host->setFileQuestion([&](Question question, const QString& startPath) {
        asked.append({question, startPath});
        return answer;
    });
    bool mayDiscard = false;
    m_host->setDiscardQuestion([&] { return mayDiscard; });
    auto trigger = [this](const char* name) {
        m_host->window()->findChild<QAction*>(QLatin1String(name))->trigger();
    };

    // The sample has no file yet: Save asks where; no answer writes nothing.
    trigger("SaveAction");
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.last().first, Question::SaveAs);
    QCOMPARE(asked.last().second, QDir::homePath());
    const QString saved = m_dir.filePath(QStringLiteral("asked.iv"));
    QVERIFY(!QFile::exists(saved));

    answer = saved;
    trigger("SaveAsAction");
    QCOMPARE(asked.size(), 2);
    QVERIFY(QFile::exists(saved));
    QVERIFY(m_host->window()->windowTitle().startsWith(QStringLiteral("asked.iv \u2014")));

    // A known file is saved without asking.
    typeIntoFloatEditor(QStringLiteral("Sampler.opacity"), QStringLiteral("0.375"));
    if (QTest::currentTestFailed())
        return;
    QVERIFY(m_host->hasUnsavedChanges());
    trigger("SaveAction");
    QCOMPARE(asked.size(), 2);
    QVERIFY(!m_host->hasUnsavedChanges());
    QFile written(saved);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QVERIFY(written.readAll().contains("opacity 0.375"));

    // Open asks for the file only once the changes may go, starting where
    // the scene is.
    const QString other = m_dir.filePath(QStringLiteral("asked-other.iv"));
    writeFile(other, "#Inventor V2.1 ascii\nDEF Asked Material { diffuseColor 0 1 0 }\n");
    typeIntoFloatEditor(QStringLiteral("Sampler.opacity"), QStringLiteral("0.5"));
    if (QTest::currentTestFailed())
        return;
    answer = other;
    trigger("OpenAction");
    QCOMPARE(asked.size(), 2);
    QVERIFY(m_host->select(QStringLiteral("Sampler.opacity")));
    mayDiscard = true;
    trigger("OpenAction");
    QCOMPARE(asked.size(), 3);
    QCOMPARE(asked.last().first, Question::Open);
    QCOMPARE(asked.last().second, saved);
    QVERIFY(m_host->select(QStringLiteral("Asked.diffuseColor")));
    QVERIFY(!m_host->select(QStringLiteral("Sampler.opacity")));

    // Cancelling the question keeps the scene.
    answer.clear();
    trigger("OpenAction");
    QCOMPARE(asked.size(), 4);
    QVERIFY(m_host->select(QStringLiteral("Asked.diffuseColor")));

    // A scene without a file starts where the last one was opened or saved,
    // in this run or an earlier one.
    m_host->openSample();
    trigger("SaveAction");
    QCOMPARE(asked.size(), 5);
    QCOMPARE(asked.last().second, m_dir.path());
    QCOMPARE(QSettings().value(QStringLiteral("lastDirectory")).toString(), m_dir.path());
}

void tst_HostFiles::recentFilesReopen()
{
    const QString first = m_dir.filePath(QStringLiteral("first.iv"));
    const QString second = m_dir.filePath(QStringLiteral("second.iv"));
    writeFile(first, "#Inventor V2.1 ascii\nDEF First Material { }\n");
    writeFile(second, "#Inventor V2.1 ascii\nDEF Second Material { }\n");
    QVERIFY(m_host->openScene(first));
    QVERIFY(m_host->openScene(second));
    auto* recent = m_host->window()->findChild<QMenu*>(QStringLiteral("RecentMenu"));
    QVERIFY(recent && recent->isEnabled());
    QCOMPARE(recent->actions().at(0)->data().toString(), QFileInfo(second).absoluteFilePath());
    QCOMPARE(recent->actions().at(1)->data().toString(), QFileInfo(first).absoluteFilePath());
    recent->actions().at(1)->trigger();
    QCOMPARE(m_host->scenePath(), QFileInfo(first).absoluteFilePath());
    QVERIFY(m_host->select(QStringLiteral("First")));
}

QTEST_MAIN(tst_HostFiles)
#include "tst_HostFiles.moc"
