// The matrix and box editors: a disabled summary and a popup grid of cells,
// through the real plug-in module.
#include "EditorDockFixture.h"

#include <FxSFMatrixWidget.h>
#include <KalPluginsManager.h>
#include <KalSFSetValueCommand.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SbBox3s.h>
#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QDockWidget>
#include <QFrame>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QValidator>
#include <QtTest>

class tst_PopupEditors : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void matrixShowsItsRowsInCells();
    void popupToggles();
    void returnInACellAppliesTheGrid();
    void leavingAModifiedCellApplies();
    void emptyCellIsZero();
    void boxCellsTakeShortsOnly();
    void summaryNeverApplies();
    void popupStaysOnScreen();

private:
    QList<QLineEdit*> cells() const;
    QPushButton* editButton() const;
};

QList<QLineEdit*> tst_PopupEditors::cells() const
{
    // Created row by row, so in cell order.
    return dock()->widget()->findChildren<QLineEdit*>(QStringLiteral("m_cell"));
}

QPushButton* tst_PopupEditors::editButton() const
{
    return dock()->widget()->findChild<QPushButton*>(QStringLiteral("m_editButton"));
}

void tst_PopupEditors::matrixShowsItsRowsInCells()
{
    SbMatrix matrix = SbMatrix::identity();
    matrix[0][1] = 0.1f;
    m_node->sfMatrix.setValue(matrix);
    QVERIFY(selectShown(&m_node->sfMatrix));
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFMatrixWidget"));
    const QList<QLineEdit*> grid = cells();
    QCOMPARE(grid.size(), 16);
    QCOMPARE(grid[0]->text(), QStringLiteral("1"));
    QCOMPARE(grid[1]->text(), QStringLiteral("0.1"));
    QCOMPARE(grid[2]->text(), QStringLiteral("0"));
    QCOMPARE(grid[5]->text(), QStringLiteral("1"));
    for (QLineEdit* cell : grid)
        QCOMPARE(cell->cursorPosition(), 0);
}

void tst_PopupEditors::popupToggles()
{
    QVERIFY(selectShown(&m_node->sfMatrix));
    QWidget* popup = cells().first()->parentWidget();
    QVERIFY(popup->isHidden());
    QCOMPARE(popup->size(), QSize(260, 100));
    QTest::mouseClick(editButton(), Qt::LeftButton);
    QVERIFY(popup->isVisible());
    QMetaObject::invokeMethod(dock()->widget(), "managePopFramePos");
    popup->hide();
    QTest::mouseClick(editButton(), Qt::LeftButton);
    QVERIFY(popup->isVisible());
    popup->hide();
}

void tst_PopupEditors::returnInACellAppliesTheGrid()
{
    QVERIFY(selectShown(&m_node->sfMatrix));
    QLineEdit* cell = cells().at(3);
    cell->setFocus();
    cell->selectAll();
    QTest::keyClicks(cell, QStringLiteral("5.5"));
    QTest::keyClick(cell, Qt::Key_Return);
    QCOMPARE(m_node->sfMatrix.getValue()[0][3], 5.5f);
    QCOMPARE(m_node->sfMatrix.getValue()[1][1], 1.0f);
    QVERIFY(KalServices::getInstance()->commandCount() >= 1);
    QVERIFY(dynamic_cast<KalSFSetValueCommand*>(KalServices::getInstance()->command(0)));
}

void tst_PopupEditors::leavingAModifiedCellApplies()
{
    QVERIFY(selectShown(&m_node->sfBox3s));
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFBox3sWidget"));
    QLineEdit* xmax = cells().at(3);
    QCOMPARE(xmax->text(), QStringLiteral("4"));
    QMetaObject::invokeMethod(xmax, "editingFinished");
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    xmax->setFocus();
    xmax->selectAll();
    QTest::keyClicks(xmax, QStringLiteral("40"));
    QMetaObject::invokeMethod(xmax, "editingFinished");
    short bounds[6];
    m_node->sfBox3s.getValue().getBounds(bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5]);
    QCOMPARE(bounds[3], short(40));
    QCOMPARE(bounds[0], short(-1));
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
}

void tst_PopupEditors::emptyCellIsZero()
{
    QVERIFY(selectShown(&m_node->sfBox3s));
    QLineEdit* ymin = cells().at(1);
    ymin->clear();
    QLineEdit* zmax = cells().at(5);
    zmax->setFocus();
    QTest::keyClick(zmax, Qt::Key_Return);
    short bounds[6];
    m_node->sfBox3s.getValue().getBounds(bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5]);
    QCOMPARE(bounds[1], short(0));
    QCOMPARE(bounds[5], short(6));
}

void tst_PopupEditors::boxCellsTakeShortsOnly()
{
    QVERIFY(selectShown(&m_node->sfBox3s));
    QLineEdit* cell = cells().at(0);
    int at = 0;
    QString text = QStringLiteral("40000");
    QVERIFY(cell->validator()->validate(text, at) != QValidator::Acceptable);
    text = QStringLiteral("-32768");
    QCOMPARE(cell->validator()->validate(text, at), QValidator::Acceptable);
    QVERIFY(selectShown(&m_node->sfMatrix));
    text = QStringLiteral("1e30");
    QCOMPARE(cells().at(0)->validator()->validate(text, at), QValidator::Acceptable);
}

void tst_PopupEditors::summaryNeverApplies()
{
    QVERIFY(selectShown(&m_node->sfMatrix));
    auto* summary = dock()->widget()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    QVERIFY(summary);
    QVERIFY(!summary->isEnabled());
    QVERIFY(summary->text().contains(QStringLiteral("1 0 0 0")));
    QTest::keyClicks(summary, QStringLiteral("garbage"));
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
}

void tst_PopupEditors::popupStaysOnScreen()
{
    // An editor of its own, its frame a window put in the screen's
    // bottom-right corner, so that the grid would run off both edges.
    FxSFMatrixWidget editor;
    editor.createWidget();
    editor.setEditedObject(&m_node->sfMatrix);
    editor.activate();
    const QRect desktop = QGuiApplication::primaryScreen()->geometry();
    QFrame* frame = editor.getFrame();
    frame->move(desktop.width() - frame->width() / 2, desktop.height() - frame->height() / 2);
    QVERIFY(QTest::qWaitForWindowExposed(frame));
    auto* button = frame->findChild<QPushButton*>(QStringLiteral("m_editButton"));
    const QPoint corner = frame->mapToGlobal(button->geometry().bottomRight());
    QTest::mouseClick(button, Qt::LeftButton);
    QFrame* popup = editor.getPopupFrame();
    QVERIFY(popup->isVisible());
    const bool pastRight = corner.x() > desktop.width() - popup->width() - button->width();
    const bool pastBottom = corner.y() > desktop.height() - popup->height() - button->height();
    QVERIFY(pastRight && pastBottom);
    // Moved to the left of and above the button's corner.
    QVERIFY(popup->x() + popup->width() <= corner.x() + 2);
    QVERIFY(popup->y() < corner.y() - button->height());
    popup->hide();
    editor.deactivate();
    editor.destroyWidget();
}

QTEST_MAIN(tst_PopupEditors)
#include "tst_PopupEditors.moc"
