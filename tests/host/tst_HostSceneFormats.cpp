// The formats of kalhost's scene files: a binary scene saved binary, a
// text scene as text, Save As offering both, an image written in the scene
// kept in either, and a cut binary file refused without a false place.
#include "FieldTesting.h"
#include "HostWindowFixture.h"
#include "SceneFileTesting.h"

#include <SceneModel.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoNode.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

using namespace SceneFileTesting;

class tst_HostSceneFormats : public HostWindowFixture
{
    Q_OBJECT

private slots:
    void truncatedBinaryFileSaysNoFalsePlace();
    void saveKeepsTheFormat();
    void saveAsOffersBothFormats();
    void inlineTextureSurvives_data();
    void inlineTextureSurvives();

private:
    // Answers the Save As dialog with a file and one of its formats.
    void answerSaveDialog(const QString& path, const QString& filterStart);
};

void tst_HostSceneFormats::truncatedBinaryFileSaysNoFalsePlace()
{
    const QString text = m_dir.filePath(QStringLiteral("whole.iv"));
    writeFile(text, kCameraScene);
    QVERIFY(m_host->openScene(text));
    const QString binary = m_dir.filePath(QStringLiteral("whole-binary.iv"));
    QVERIFY(m_host->saveScene(binary, SceneDocument::Format::Binary));
    QFile whole(binary);
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    QVERIFY(bytes.startsWith("#Inventor V2.1 binary"));
    const QString cut = m_dir.filePath(QStringLiteral("cut.iv"));
    writeFile(cut, bytes.left(bytes.size() - 40));
    QVERIFY(!m_host->openScene(cut));
    const QString error = m_host->lastError();
    QVERIFY2(error.contains(QStringLiteral("cut.iv, near byte ")) ||
                 error.contains(QStringLiteral("\": cut.iv: ")),
             qPrintable(error));
    QVERIFY2(!error.contains(QStringLiteral("position 0")), qPrintable(error));
    QVERIFY2(!error.contains(QStringLiteral("<memory>")), qPrintable(error));
}

void tst_HostSceneFormats::saveKeepsTheFormat()
{
    // A binary scene is saved binary, after an edit, by File > Save.
    const QString text = m_dir.filePath(QStringLiteral("format.iv"));
    writeFile(text, kCameraScene);
    QVERIFY(m_host->openScene(text));
    const QString binary = m_dir.filePath(QStringLiteral("format-binary.iv"));
    QVERIFY(m_host->saveScene(binary, SceneDocument::Format::Binary));
    QVERIFY(m_host->openScene(binary));
    QCOMPARE(m_host->sceneFormat(), SceneDocument::Format::Binary);
    QVERIFY(!m_host->hasUnsavedChanges());
    typeIntoFloatEditor(QStringLiteral("/2.width"), QStringLiteral("7"));
    if (QTest::currentTestFailed())
        return;
    QVERIFY(m_host->hasUnsavedChanges());
    m_host->window()->findChild<QAction*>(QStringLiteral("SaveAction"))->trigger();
    QVERIFY2(!m_host->hasUnsavedChanges(), qPrintable(m_host->lastError()));
    QCOMPARE(fileStart(binary, 21), QByteArray("#Inventor V2.1 binary"));
    QVERIFY(m_host->openScene(binary));
    auto* root = static_cast<SoSeparator*>(m_host->sceneModel()->root());
    QCOMPARE(fieldText(root->getChild(2)->getField("width")), QStringLiteral("7"));

    // A text scene stays text.
    QVERIFY(m_host->openScene(text));
    QCOMPARE(m_host->sceneFormat(), SceneDocument::Format::Ascii);
    m_host->window()->findChild<QAction*>(QStringLiteral("SaveAction"))->trigger();
    QCOMPARE(fileStart(text, 20), QByteArray("#Inventor V2.1 ascii"));
}

void tst_HostSceneFormats::answerSaveDialog(const QString& path, const QString& filterStart)
{
    // The dialog runs its own event loop; it is answered from there once
    // it is up, as a person would: the format chosen, the name typed, Save.
    auto* poll = new QTimer(this);
    poll->setInterval(20);
    connect(poll, &QTimer::timeout, this, [poll, path, filterStart] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        poll->stop();
        poll->deleteLater();
        QCOMPARE(dialog->objectName(), QStringLiteral("SaveSceneDialog"));
        const QStringList offered = dialog->nameFilters();
        auto* types = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        int wanted = -1;
        for (int i = 0; i < offered.size(); ++i) {
            if (offered.at(i).startsWith(filterStart))
                wanted = i;
        }
        if (offered.size() != 2 || !types || !name || wanted < 0) {
            dialog->reject();
            QFAIL("The save dialog is not Qt's own, or does not offer both formats.");
        }
        QVERIFY(offered.at(0).startsWith(QStringLiteral("Scenes, text")));
        QVERIFY(offered.at(1).startsWith(QStringLiteral("Scenes, binary")));
        dialog->selectNameFilter(offered.at(wanted));
        QCOMPARE(types->currentText(), offered.at(wanted));
        name->clear();
        QTest::keyClicks(name, path);
        auto* buttons = dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        QPushButton* save = buttons ? buttons->button(QDialogButtonBox::Save) : nullptr;
        if (!save) {
            dialog->reject();
            QFAIL("The save dialog has no Save button.");
        }
        QTest::mouseClick(save, Qt::LeftButton);
        if (dialog->isVisible()) {
            dialog->reject();
            QFAIL("Save did not take the name.");
        }
    });
    poll->start();
}

void tst_HostSceneFormats::saveAsOffersBothFormats()
{
    const QString text = m_dir.filePath(QStringLiteral("offer.iv"));
    writeFile(text, kCameraScene);
    QVERIFY(m_host->openScene(text));
    // Text as binary, then binary as text again.
    const QString binary = m_dir.filePath(QStringLiteral("offer-binary.iv"));
    answerSaveDialog(binary, QStringLiteral("Scenes, binary"));
    m_host->window()->findChild<QAction*>(QStringLiteral("SaveAsAction"))->trigger();
    QCOMPARE(m_host->scenePath(), binary);
    QCOMPARE(fileStart(binary, 21), QByteArray("#Inventor V2.1 binary"));
    QCOMPARE(nodeText(binary, "FileCamera"), nodeText(text, "FileCamera"));

    const QString again = m_dir.filePath(QStringLiteral("offer-text.iv"));
    answerSaveDialog(again, QStringLiteral("Scenes, text"));
    m_host->window()->findChild<QAction*>(QStringLiteral("SaveAsAction"))->trigger();
    QCOMPARE(m_host->scenePath(), again);
    QCOMPARE(fileStart(again, 20), QByteArray("#Inventor V2.1 ascii"));
    QCOMPARE(nodeText(again, "Red"), nodeText(text, "Red"));
}

void tst_HostSceneFormats::inlineTextureSurvives_data()
{
    QTest::addColumn<bool>("binary");
    QTest::newRow("text") << false;
    QTest::newRow("binary") << true;
}

void tst_HostSceneFormats::inlineTextureSurvives()
{
    QFETCH(bool, binary);
    const QString path = m_dir.filePath(QStringLiteral("texture.iv"));
    writeFile(path, kTextureScene);
    QVERIFY(m_host->openScene(path));
    QVERIFY(m_host->select(QStringLiteral("Inline.image")));
    const QString saved =
        m_dir.filePath(binary ? QStringLiteral("texture-binary.iv") : QStringLiteral("texture-text.iv"));
    QVERIFY(m_host->saveScene(saved, binary ? SceneDocument::Format::Binary : SceneDocument::Format::Ascii));
    const QString original = nodeText(path, "Inline");
    QVERIFY2(original.contains(QStringLiteral("0xff0000")), qPrintable(original));
    QCOMPARE(nodeText(saved, "Inline"), original);
    QVERIFY(m_host->openScene(saved));
    QVERIFY(m_host->select(QStringLiteral("Inline.image")));
    QCOMPARE(fieldText(static_cast<SoNode*>(SoNode::getByName("Inline"))->getField("image")).simplified(),
             QStringLiteral("2 2 3 0xff0000 0xff00 0xff 0xffffff"));
}

QTEST_MAIN(tst_HostSceneFormats)
#include "tst_HostSceneFormats.moc"
