#pragma once
// What the list editor tests share besides the editor-dock fixture: the
// table, its buttons and cells, the host's history and the error stream.
#include "EditorDockFixture.h"
#include "FieldTesting.h"
#include "ListEditorFixture.h"

#include <AccessButtonPrivate.h>
#include <FxMFieldTable.h>
#include <FxMFieldWidget.h>
#include <KalCommand.h>
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <KalShell.h>

#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoMField.h>

#include <QApplication>
#include <QDockWidget>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTextDocumentFragment>
#include <QtTest>

#include <iostream>
#include <sstream>
#include <typeinfo>

namespace ListEditorTesting {

// The lines of a list editor's popup in grid order, found by their place in
// its layout: the popup is a window of its own, but a child of the editor.
inline QList<QLineEdit*> popupLines(QWidget* editor)
{
    QList<QLineEdit*> lines;
    auto* grid = editor ? editor->findChild<QGridLayout*>(QStringLiteral("m_popupFrameLayout")) : nullptr;
    if (!grid)
        return lines;
    for (int row = 0; row < grid->rowCount(); ++row) {
        for (int column = 0; column < grid->columnCount(); ++column) {
            QLayoutItem* item = grid->itemAtPosition(row, column);
            if (item && item->widget())
                lines << static_cast<QLineEdit*>(item->widget());
        }
    }
    return lines;
}

inline FxMFieldTable* table()
{
    if (FxMFieldTable* plain = EditorDockFixture::child<FxMFieldTable>("m_table"))
        return plain;
    // The colour list's table goes by its class's name.
    return EditorDockFixture::child<FxMFieldTable>("FxMFieldTable");
}

// The texts of the shown table's column headers.
inline QStringList headerLabels()
{
    QStringList labels;
    for (int column = 0; column < table()->columnCount(); ++column)
        labels << table()->horizontalHeaderItem(column)->text();
    return labels;
}

inline AccessButtonPrivate* accessBox()
{
    return EditorDockFixture::child<AccessButtonPrivate>("m_accessBox");
}

inline FxMFieldWidget* shownEditor()
{
    FxMFieldTable* shown = table();
    return shown ? shown->getFieldWidget() : nullptr;
}

inline void click(const char* buttonName)
{
    QPushButton* button = EditorDockFixture::child<QPushButton>(buttonName);
    QVERIFY2(button, buttonName);
    QTest::mouseClick(button, Qt::LeftButton);
    processSensors();
}

// Clicks a cell the way a person does, with an optional modifier.
inline void clickCell(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    FxMFieldTable* shown = table();
    shown->scrollTo(shown->model()->index(row, 0));
    const QRect cell = shown->visualRect(shown->model()->index(row, 0));
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, modifiers, cell.center());
}

inline void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    FxMFieldTable* shown = table();
    shown->setFocus();
    QTest::keyClick(shown, key, modifiers);
    processSensors();
}

inline QStringList values(SoMField& field)
{
    QStringList texts;
    for (int i = 0; i < field.getNum(); ++i) {
        SbString text;
        field.get1(i, text);
        texts << QString::fromUtf8(text.getString());
    }
    return texts;
}

inline void fill(SoMFString& field, const QStringList& texts)
{
    field.setNum(0);
    for (int i = 0; i < texts.size(); ++i)
        field.set1Value(i, SbString(texts.at(i).toUtf8().constData()));
}

inline int commands()
{
    return KalServices::getInstance()->commandCount();
}

template <class Command>
bool lastCommandIs()
{
    KalCommand* command = KalServices::getInstance()->command(commands() - 1);
    return command && typeid(*command) == typeid(Command);
}

inline QString elementCount()
{
    QLabel* label = EditorDockFixture::child<QLabel>("m_labelNumElement");
    return label ? QTextDocumentFragment::fromHtml(label->text()).toPlainText() : QString();
}

// Collects what the list editors write on the error stream.
class ErrorStreamCapture
{
public:
    ErrorStreamCapture()
        : m_previous(std::cerr.rdbuf(m_text.rdbuf()))
    {}
    ~ErrorStreamCapture() { std::cerr.rdbuf(m_previous); }
    QString text() const { return QString::fromStdString(m_text.str()); }

private:
    std::ostringstream m_text;
    std::streambuf* m_previous;
};

} // namespace ListEditorTesting
