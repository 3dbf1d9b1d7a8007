// The Boolean, enumeration, bit mask, colour and image editors through the
// real plug-in module, and the colour dialog through the dialog seam.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <FxSFColorWidget.h>
#include <KalPluginsManager.h>
#include <KalSFSetValueCommand.h>
#include <KalServices.h>
#include <KalShell.h>
#include <ModalDialogs.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QtTest>

#include <vector>

namespace {

// An image of w x h pixels with nc components; pixel (x, y) of stored row y
// gets the bytes (x, y, 7, 255) as far as it has components.
void setImage(SoSFImage& field, int width, int height, int components)
{
    std::vector<unsigned char> bytes(size_t(width) * size_t(height) * size_t(components));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            unsigned char* pixel =
                bytes.data() + (size_t(y) * size_t(width) + size_t(x)) * size_t(components);
            const unsigned char values[] = {static_cast<unsigned char>(x), static_cast<unsigned char>(y), 7,
                                            255};
            for (int c = 0; c < components; ++c)
                pixel[c] = values[c];
        }
    }
    field.setValue(SbVec2s(short(width), short(height)), components, bytes.data());
}

} // namespace

class tst_ChoiceEditors : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void cleanup();

    void boolEditor();
    void enumEditorListsAndApplies();
    void enumEditorRenamesForAnUnknownText();
    void bitMaskBoxes();
    void bitMaskChangesLeaveNothingToUndo();
    void colourComponentsApplyOnReturn();
    void colourOutOfRangeKeepsTheSwatch();
    void colourDialogWritesAtOnce();
    void cancelledColourDialogWritesNothing();
    void imagePopupIsAtMost256();
    void colourImageRowsAreReversed();
    void greyImageRowsAreNot();
    void imageWithoutFieldOrData();
};

void tst_ChoiceEditors::cleanup()
{
    EditorDockFixture::cleanup();
    ModalDialogs::setColor(nullptr);
}

void tst_ChoiceEditors::boolEditor()
{
    QVERIFY(selectShown(&m_node->sfBool));
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFBoolWidget"));
    QCOMPARE(child<QLabel>("m_label")->text(), QStringLiteral("<p align=\"center\">SFBool</p>"));
    auto* box = child<QCheckBox>("m_box");
    QVERIFY(box->isChecked());
    QCOMPARE(box->size(), QSize(16, 18));
    QTest::mouseClick(box, Qt::LeftButton);
    QCOMPARE(m_node->sfBool.getValue(), FALSE);
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    QVERIFY(dynamic_cast<KalSFSetValueCommand*>(KalServices::getInstance()->command(0)));
    m_node->sfBool.setValue(TRUE);
    processSensors();
    QVERIFY(box->isChecked());
}

void tst_ChoiceEditors::enumEditorListsAndApplies()
{
    QVERIFY(selectShown(&m_node->sfEnum));
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFEnumWidget"));
    auto* combo = child<QComboBox>("comboBox");
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    QCOMPARE(items, (QStringList{"LIGHT", "MEDIUM", "DARK"}));
    QCOMPARE(combo->currentText(), QStringLiteral("MEDIUM"));
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);
    QCOMPARE(m_node->sfEnum.getValue(), int(AllFieldsNode::DARK));
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    m_node->sfEnum.setValue(AllFieldsNode::LIGHT);
    processSensors();
    QCOMPARE(combo->currentText(), QStringLiteral("LIGHT"));
}

void tst_ChoiceEditors::enumEditorRenamesForAnUnknownText()
{
    QVERIFY(selectShown(&m_node->sfEnum));
    auto* combo = child<QComboBox>("comboBox");
    m_node->sfEnum.setValue(99);
    SbString text;
    m_node->sfEnum.get(text);
    processSensors();
    QCOMPARE(combo->currentIndex(), 1);
    QCOMPARE(combo->currentText(), QString::fromLatin1(text.getString()));
    QVERIFY(combo->currentText() != QStringLiteral("MEDIUM"));
    QCOMPARE(combo->count(), 3);
}

void tst_ChoiceEditors::bitMaskBoxes()
{
    m_node->sfBitMask.setValue(AllFieldsNode::SIDES);
    QVERIFY(selectShown(&m_node->sfBitMask));
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFBitMaskWidget"));
    QStringList names;
    QStringList checked;
    for (QCheckBox* box : dock()->widget()->findChildren<QCheckBox*>()) {
        names << box->text();
        if (box->isChecked())
            checked << box->text();
    }
    // The zero entry gets no box; LOWER (6) shares one bit with SIDES (2).
    QCOMPARE(names, (QStringList{"TOP", "SIDES", "BOTTOM", "LOWER"}));
    QCOMPARE(checked, (QStringList{"SIDES", "LOWER"}));
}

void tst_ChoiceEditors::bitMaskChangesLeaveNothingToUndo()
{
    m_node->sfBitMask.setValue(AllFieldsNode::SIDES);
    QVERIFY(selectShown(&m_node->sfBitMask));
    QCheckBox* top = nullptr;
    for (QCheckBox* box : dock()->widget()->findChildren<QCheckBox*>()) {
        if (box->text() == QStringLiteral("TOP"))
            top = box;
    }
    QVERIFY(top);
    // On the box's indicator: a check box takes clicks only there and on its
    // text.
    QTest::mouseClick(top, Qt::LeftButton, Qt::NoModifier, QPoint(8, top->height() / 2));
    QVERIFY(top->isChecked());
    QCOMPARE(m_node->sfBitMask.getValue(),
             int(AllFieldsNode::TOP | AllFieldsNode::SIDES | AllFieldsNode::LOWER));
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
}

void tst_ChoiceEditors::colourComponentsApplyOnReturn()
{
    QVERIFY(selectShown(&m_node->sfColor));
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFColorWidget"));
    QList<QLineEdit*> edits = dock()->widget()->findChildren<QLineEdit*>(QStringLiteral("SFColorLine"));
    QCOMPARE(edits.size(), 3);
    QCOMPARE(edits[0]->text(), QStringLiteral("0.8"));
    edits[1]->setFocus();
    edits[1]->selectAll();
    QTest::keyClicks(edits[1], QStringLiteral("0.25"));
    QCOMPARE(m_node->sfColor.getValue()[1], 0.4f);
    QTest::keyClick(edits[1], Qt::Key_Return);
    QCOMPARE(m_node->sfColor.getValue()[1], 0.25f);
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    QStringList labels;
    for (QLabel* label : dock()->widget()->findChildren<QLabel*>(QStringLiteral("SFColorLabel")))
        labels << label->text();
    QCOMPARE(labels, (QStringList{"<p align=\"right\">R</p>", "<p align=\"right\">G</p>",
                                  "<p align=\"right\">B</p>"}));
}

void tst_ChoiceEditors::colourOutOfRangeKeepsTheSwatch()
{
    QVERIFY(selectShown(&m_node->sfColor));
    auto* swatch = child<QPushButton>("m_colorDisp");
    QVERIFY(swatch);
    auto shown = [swatch] { return swatch->icon().pixmap(swatch->size()).toImage().pixelColor(5, 5); };
    QCOMPARE(shown(), QColor(204, 102, 25));
    QLineEdit* red = dock()->widget()->findChildren<QLineEdit*>(QStringLiteral("SFColorLine")).at(0);
    red->setFocus();
    red->selectAll();
    // "1" paints full red; "1.5" would be channel 382, so the swatch stays.
    QTest::keyClicks(red, QStringLiteral("1"));
    QCOMPARE(shown(), QColor(255, 102, 25));
    QTest::keyClicks(red, QStringLiteral(".5"));
    QCOMPARE(shown(), QColor(255, 102, 25));
    QCOMPARE(m_node->sfColor.getValue()[0], 0.8f);
    QTest::keyClick(red, Qt::Key_Return);
    QCOMPARE(m_node->sfColor.getValue()[0], 1.5f);
}

void tst_ChoiceEditors::colourDialogWritesAtOnce()
{
    FxSFColorWidget editor;
    editor.createWidget();
    editor.setEditedObject(&m_node->sfColor);
    editor.activate();
    QColor offered;
    ModalDialogs::setColor([&](const QColor& initial, QWidget*, const QString&) {
        offered = initial;
        return QColor(0, 255, 51);
    });
    QTest::mouseClick(editor.getFrame()->findChild<QPushButton*>(QStringLiteral("m_colorDisp")),
                      Qt::LeftButton);
    QCOMPARE(offered, QColor(204, 102, 25));
    QCOMPARE(m_node->sfColor.getValue(), SbColor(0.0f, 1.0f, 0.2f));
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    editor.deactivate();
    editor.destroyWidget();
}

void tst_ChoiceEditors::cancelledColourDialogWritesNothing()
{
    FxSFColorWidget editor;
    editor.createWidget();
    editor.setEditedObject(&m_node->sfColor);
    editor.activate();
    ModalDialogs::setColor([](const QColor&, QWidget*, const QString&) { return QColor(); });
    QTest::mouseClick(editor.getFrame()->findChild<QPushButton*>(QStringLiteral("m_colorDisp")),
                      Qt::LeftButton);
    QCOMPARE(m_node->sfColor.getValue(), SbColor(0.8f, 0.4f, 0.1f));
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    editor.deactivate();
    editor.destroyWidget();
}

void tst_ChoiceEditors::imagePopupIsAtMost256()
{
    setImage(m_node->sfImage, 512, 100, 3);
    QVERIFY(selectShown(&m_node->sfImage));
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFImageWidget"));
    auto* thumbnail = child<QLabel>("m_imageBox");
    QVERIFY(thumbnail);
    QCOMPARE(thumbnail->size(), QSize(16, 16));
    auto* popup = thumbnail->findChild<QLabel*>(QStringLiteral("pixmapLabel"));
    QVERIFY(popup);
    QCOMPARE(popup->size(), QSize(256, 100));
    QVERIFY(popup->isHidden());
    QTest::mouseMove(thumbnail, QPoint(4, 4));
    QVERIFY(!popup->isHidden());
    popup->hide();
}

void tst_ChoiceEditors::colourImageRowsAreReversed()
{
    setImage(m_node->sfImage, 4, 3, 4);
    QVERIFY(selectShown(&m_node->sfImage));
    const QImage image = child<QLabel>("m_imageBox")->pixmap(Qt::ReturnByValue).toImage();
    QCOMPARE(image.size(), QSize(4, 3));
    // Stored row 0 is the bottom row; red and green keep their meaning.
    QCOMPARE(qRed(image.pixel(2, 2)), 2);
    QCOMPARE(qGreen(image.pixel(2, 2)), 0);
    QCOMPARE(qBlue(image.pixel(2, 2)), 7);
    QCOMPARE(qGreen(image.pixel(1, 0)), 2);
}

void tst_ChoiceEditors::greyImageRowsAreNot()
{
    setImage(m_node->sfImage, 5, 3, 1);
    QVERIFY(selectShown(&m_node->sfImage));
    const QImage image = child<QLabel>("m_imageBox")->pixmap(Qt::ReturnByValue).toImage();
    QCOMPARE(image.size(), QSize(5, 3));
    QCOMPARE(qRed(image.pixel(3, 0)), 3);
    QCOMPARE(qRed(image.pixel(4, 2)), 4);
}

void tst_ChoiceEditors::imageWithoutFieldOrData()
{
    QVERIFY(selectShown(&m_node->sfImage));
    auto* thumbnail = child<QLabel>("m_imageBox");
    QVERIFY(thumbnail->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(thumbnail->findChild<QLabel*>(QStringLiteral("pixmapLabel"))->size(), QSize(0, 0));
}

QTEST_MAIN(tst_ChoiceEditors)
#include "tst_ChoiceEditors.moc"
