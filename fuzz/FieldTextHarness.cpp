#include "FieldTextHarness.h"

#include "EditorSet.h"
#include "FieldTextOracle.h"

#include <AllFieldsNode.h>
#include <FieldTesting.h>
#include <FieldTextGuard.h>
#include <FxMFColorWidget.h>
#include <FxMFLineWidget.h>
#include <FxMFMatrixWidget.h>
#include <FxMFieldTable.h>
#include <FxMFieldTableItemDelegate.h>
#include <FxMFieldWidget.h>
#include <FxSFFloatComponents.h>
#include <FxSFieldWidget.h>
#include <FxSlider.h>
#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoMFName.h>
#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFName.h>
#include <Inventor/fields/SoSFString.h>
#include <Inventor/lists/SoFieldList.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {

// Typing costs three events a key; what is typed is cut here, and longer
// texts go in by the paste route.
constexpr int kTypedLength = 40;

// Fields of types no editor of their own takes, for the generic editors,
// with a value to start from. Not the RGBA colours: Coin 4 reads three
// components and a stray fourth for them, so their own text never reads
// back, whatever wrote it.
struct LoneField
{
    const char* type;
    const char* value;
};

const LoneField kLoneFields[] = {
    {"SFVec3d", "1 2 3"},        {"SFVec2d", "0.5 -0.5"},       {"SFVec4d", "1 2 3 4"},
    {"SFBox3f", "0 0 0 1 1 1"},  {"SFVec4i32", "1 2 3 4"},      {"MFVec3d", "[1 2 3, 4 5 6]"},
    {"MFBool", "[TRUE, FALSE]"}, {"MFVec2d", "[0.5 1.5, 2 3]"},
};

// The line edits a person can type into, in the order the editor made
// them: a disabled summary of a grid is not one.
QList<QLineEdit*> textInputs(QWidget* frame)
{
    QList<QLineEdit*> inputs;
    for (QLineEdit* line : frame->findChildren<QLineEdit*>()) {
        if (line->isEnabled())
            inputs << line;
    }
    return inputs;
}

QAbstractSpinBox* spinBoxOf(QLineEdit* line)
{
    return qobject_cast<QAbstractSpinBox*>(line->parentWidget());
}

// The place of an input among the inputs of its name: the component of a
// vector, the cell of a grid.
int componentOf(QLineEdit* line, QWidget* frame)
{
    return frame->findChildren<QLineEdit*>(line->objectName()).indexOf(line);
}

} // namespace

FieldTextHarness::FieldTextHarness()
{
    // The edited node, its pristine twin, and the one read back into.
    SoNode* nodes[3];
    for (SoNode*& node : nodes) {
        node = new AllFieldsNode;
        node->ref();
        m_nodes.push_back(node);
    }
    addNodeFields(nodes[0], nodes[1], nodes[2]);
    for (const LoneField& lone : kLoneFields)
        addLoneField(lone.type);
    for (size_t i = 0; i < std::size(kLoneFields); ++i) {
        Target& target = m_targets[m_targets.size() - std::size(kLoneFields) + i];
        target.pristine->set(kLoneFields[i].value);
    }
    m_plain = std::make_unique<EditorSet>(QLocale::c());
    m_german = std::make_unique<EditorSet>(QLocale(QLocale::German, QLocale::Germany));
}

FieldTextHarness::~FieldTextHarness()
{
    m_plain.reset();
    m_german.reset();
    for (SoNode* node : m_nodes)
        node->unref();
}

void FieldTextHarness::addNodeFields(SoNode* node, SoNode* pristine, SoNode* scratch)
{
    SoFieldList fields;
    node->getFields(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
        SbName name;
        node->getFieldName(fields[i], name);
        m_targets.push_back({fields[i], pristine->getField(name), scratch->getField(name)});
    }
}

void FieldTextHarness::addLoneField(const char* typeName)
{
    const SoType type = SoType::fromName(typeName);
    SoField* made[3];
    for (SoField*& field : made) {
        field = static_cast<SoField*>(type.createInstance());
        m_loneFields.emplace_back(field);
    }
    m_targets.push_back({made[0], made[1], made[2]});
}

KalFieldEditors* FieldTextHarness::chooseEditor(const EditorSet& set, SoField* field, int choice) const
{
    const bool single = !field->isOfType(SoMField::getClassTypeId());
    KalFieldEditors* editor = set.specificFor(field);
    if (choice == 2)
        editor = set.genericFor(field);
    else if (choice == 3 && single)
        editor = set.stringEditor();
    // A check box, a combo box, check boxes or a picture take no text: for
    // such a field the generic editor is the text route.
    if (single && textInputs(editor->getFrame()).isEmpty())
        editor = set.genericFor(field);
    return editor;
}

void FieldTextHarness::run(const uint8_t* data, size_t size)
{
    if (size < 3 || m_targets.empty())
        return;
    const Target& target = m_targets[data[0] % m_targets.size()];
    const int route = data[1] & 3;
    const bool german = (data[1] & 4) != 0;
    const int choice = (data[1] >> 3) & 3;
    const bool undo = (data[1] & 0x20) != 0;
    const int which = data[2];
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data + 3), int(size - 3));

    target.field->copyFrom(*target.pristine);
    processSensors();
    KalServices* services = KalServices::getInstance();
    services->clearHistory();
    const EditorSet& set = german ? *m_german : *m_plain;
    QLocale::setDefault(set.locale());

    KalFieldEditors* editor = chooseEditor(set, target.field, choice);
    editor->setEditedObject(target.field);
    editor->activate();
    processSensors();
    const int before = services->commandCount();
    const QString textBefore = FieldTextOracle::textOf(target.field);

    // Editors that hand the text itself to Coin to parse.
    bool parsesText = false;
    if (auto* list = dynamic_cast<FxMFieldWidget*>(editor)) {
        parsesText = dynamic_cast<FxMFLineWidget*>(list) != nullptr;
        runList(list, target, route, which, text);
    } else {
        parsesText = editor == set.genericFor(target.field) ||
                     (editor == set.stringEditor() && !target.field->isOfType(SoSFString::getClassTypeId()));
        runSingle(static_cast<FxSFieldWidget*>(editor), target, route, which, text);
    }
    processSensors();
    QCoreApplication::processEvents();
    processSensors();

    if (parsesText && route == 2)
        FieldTextOracle::checkRefusedText(target.field, textBefore, before, text);
    FieldTextOracle::checkField(target.field, target.scratch, editor == set.specificFor(target.field), text);
    if (undo)
        undoAndRedo(target, services->commandCount() - before, text);
    if (isTextPath(set, editor, target.field)) {
        const QByteArray raw(reinterpret_cast<const char*>(data + 3), int(size - 3));
        checkUntouched(editor, target, which,
                       raw.left(raw.indexOf('\0') < 0 ? raw.size() : raw.indexOf('\0')));
    }

    editor->deactivate();
    services->clearHistory();
    QLocale::setDefault(QLocale::c());
}

void FieldTextHarness::type(QLineEdit* line, const QString& text, bool paste)
{
    QWidget* receiver = line;
    if (QAbstractSpinBox* spin = spinBoxOf(line))
        receiver = spin;
    line->setFocus();
    line->selectAll();
    if (paste) {
        line->insert(text);
    } else {
        // Keys a keyboard makes: printable ASCII.
        QString keys;
        for (QChar c : text.left(kTypedLength)) {
            if (c.unicode() >= 0x20 && c.unicode() < 0x7f)
                keys += c;
        }
        QTest::keyClicks(receiver, keys);
    }
    QTest::keyClick(receiver, Qt::Key_Return);
}

void FieldTextHarness::runSingle(FxSFieldWidget* editor, const Target& target, int route, int which,
                                 const QString& text)
{
    const QList<QLineEdit*> inputs = textInputs(editor->getFrame());
    if (inputs.isEmpty())
        return;
    QLineEdit* line = inputs.at(which % inputs.size());
    if (route < 2) {
        type(line, text, route == 1);
        return;
    }
    const bool accepted = FieldTextOracle::validatorAccepts(*line, text);
    // The text as it would be if no validator had looked at it, then the
    // editor's own step from its inputs to the field.
    line->setText(text);
    line->setModified(true);
    if (QAbstractSpinBox* spin = spinBoxOf(line)) {
        spin->interpretText();
        return;
    }
    FxSlider* slider = editor->getSliderFrame();
    if (slider && slider->getLineEdit() == line)
        slider->changeValueFromEdit();
    else
        editor->applyChanges();
    if (route == 3 && accepted && FieldTextOracle::verdictCounts(text))
        FieldTextOracle::checkSingleStored(editor, target.field, componentOf(line, editor->getFrame()), text);
}

void FieldTextHarness::runList(FxMFieldWidget* editor, const Target& target, int route, int which,
                               const QString& text)
{
    auto* field = static_cast<SoMField*>(target.field);
    FxMFieldTable* table = editor->getTable();
    const int rows = field->getNum();
    // One row past the end too: a text for a row that is not there.
    const int row = which % (rows + 1);
    const int firstValueColumn = dynamic_cast<FxMFColorWidget*>(editor) ? 1 : 0;
    const int valueColumns = std::max(table->columnCount() - firstValueColumn, 1);
    const int tableColumn = firstValueColumn + (which / 5) % valueColumns;
    const int column = tableColumn - firstValueColumn;

    if (route < 2 && row < rows) {
        if (auto* matrices = dynamic_cast<FxMFMatrixWidget*>(editor)) {
            table->setCurrentCell(row, 0);
            matrices->getEditButton()->click();
            const QList<QLineEdit*> lines = textInputs(matrices->getPopupFrame());
            if (!lines.isEmpty())
                type(lines.at(which % lines.size()), text, route == 1);
            matrices->getPopupFrame()->hide();
        } else {
            const QModelIndex index = table->model()->index(row, tableColumn);
            table->setCurrentIndex(index);
            table->edit(index);
            if (QWidget* cell = table->indexWidget(index)) {
                auto* line = qobject_cast<QLineEdit*>(cell);
                if (!line)
                    line = cell->findChild<QLineEdit*>();
                if (line)
                    type(line, text, route == 1);
            }
        }
        QCoreApplication::processEvents();
    } else if (route >= 2) {
        QLineEdit probe;
        table->getDelegate()->setValidator(&probe);
        const bool accepted = FieldTextOracle::validatorAccepts(probe, text);
        editor->setValueFromText(row, column, text);
        if (route == 3 && accepted && row < rows && FieldTextOracle::verdictCounts(text))
            FieldTextOracle::checkListStored(editor, target.field, row, column, text);
    }
    FieldTextOracle::checkListLength(field, rows, text);
}

// Undo and redo replay what the commands recorded; the field must read
// back after each. A spin box editor records a further command on the
// refresh after an undo, so the sensors run only once all are undone.
void FieldTextHarness::undoAndRedo(const Target& target, int commands, const QString& text)
{
    KalServices* services = KalServices::getInstance();
    for (int i = 0; i < commands; ++i)
        services->undo();
    processSensors();
    FieldTextOracle::checkField(target.field, target.scratch, false, text);
    for (int i = 0; i < commands; ++i)
        services->redo();
    processSensors();
    FieldTextOracle::checkField(target.field, target.scratch, false, text);
}

bool FieldTextHarness::isTextPath(const EditorSet& set, KalFieldEditors* editor, const SoField* field)
{
    if (editor == set.genericFor(field) || editor == set.stringEditor())
        return true;
    for (SoType type :
         {SoSFString::getClassTypeId(), SoSFName::getClassTypeId(), SoMFString::getClassTypeId()}) {
        if (field->isOfType(type))
            return true;
    }
    return false;
}

void FieldTextHarness::storeBytes(SoField* field, int which, const QByteArray& bytes)
{
    // Coin's name table cannot take a name that long, from a file either.
    if (!FieldTextGuard::namesFit(field, QString::fromLatin1(bytes)))
        return;
    if (auto* string = SoTypedObject(field).cast<SoSFString>()) {
        string->setValue(bytes.constData());
    } else if (auto* name = SoTypedObject(field).cast<SoSFName>()) {
        name->setValue(SbName(bytes.constData()));
    } else if (auto* strings = SoTypedObject(field).cast<SoMFString>()) {
        if (strings->getNum() > 0)
            strings->set1Value(which % strings->getNum(), bytes.constData());
    } else if (auto* names = SoTypedObject(field).cast<SoMFName>()) {
        if (names->getNum() > 0)
            names->set1Value(which % names->getNum(), SbName(bytes.constData()));
    } else {
        // Coin must not meet a number it would overrun on; a text it does
        // not take leaves the default.
        const QString text = QString::fromLatin1(bytes);
        if (FieldTextGuard::acceptable(text) && FieldTextGuard::imageFits(field, text))
            field->set(bytes.constData());
    }
}

// Visits every input of the editor, or the cell of the chosen row, without
// typing, as a person clicking through does: Return, then focus elsewhere.
void FieldTextHarness::checkUntouched(KalFieldEditors* editor, const Target& target, int which,
                                      const QByteArray& bytes)
{
    KalServices* services = KalServices::getInstance();
    target.field->copyFrom(*target.pristine);
    storeBytes(target.field, which, bytes);
    processSensors();
    services->clearHistory();
    const QByteArray before = FieldTextOracle::bytesOf(target.field);
    const QString shown = QString::fromLatin1(bytes);

    auto leave = [](QLineEdit* line) {
        QTest::keyClick(line, Qt::Key_Return);
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(line, &out);
    };
    if (auto* list = dynamic_cast<FxMFieldWidget*>(editor)) {
        FxMFieldTable* table = list->getTable();
        const int rows = static_cast<SoMField*>(target.field)->getNum();
        if (rows > 0 && table->rowCount() == rows) {
            const QModelIndex index = table->model()->index(which % rows, 0);
            table->setCurrentIndex(index);
            table->edit(index);
            if (auto* line = qobject_cast<QLineEdit*>(table->indexWidget(index)))
                leave(line);
        }
    } else {
        for (QLineEdit* line : textInputs(editor->getFrame()))
            leave(line);
    }
    QCoreApplication::processEvents();
    processSensors();
    FieldTextOracle::require(FieldTextOracle::bytesOf(target.field) == before,
                             "a control the user did not change wrote something different", target.field,
                             shown);
    const int commands = services->commandCount();
    for (int i = 0; i < commands; ++i)
        services->undo();
    processSensors();
    FieldTextOracle::require(FieldTextOracle::bytesOf(target.field) == before,
                             "undoing an untouched control's command changed the field", target.field, shown);
    for (int i = 0; i < commands; ++i)
        services->redo();
    processSensors();
    FieldTextOracle::require(FieldTextOracle::bytesOf(target.field) == before,
                             "redoing an untouched control's command changed the field", target.field, shown);
}
