#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

class EditorSet;
class FxMFieldWidget;
class FxSFieldWidget;
class KalFieldEditors;
class QLineEdit;
class QWidget;
class SoField;
class SoNode;

// Hands one text to one editor of one field, by one route, and has
// FieldTextOracle check what it left in the field. The fields and editors
// are made once and reused; a field is put back to its default before each
// text, so that one input always does the same thing.
//
// An input is three bytes of choices and then the text (UTF-8):
//  byte 0  the field, among a field of every type the editors handle;
//  byte 1  bits 0-1 the route (typed keys and Return, a paste and Return,
//          the text set past the validator and the editor's own step from
//          its input to the field, or that step after the validator's
//          verdict, checked against what was stored), bit 2 the editors
//          made under a German locale, bits 3-4 the editor (the field's
//          own, the generic one, or the string editor showing the field as
//          text), bit 5 undo and redo afterwards;
//  byte 2  which input of the editor, or which row and column of a list.
//
// After the route, an editor of the text paths (the generic editors, the
// string, name and file path editors, the string list) is also shown the
// text's own bytes as its field's value, where the field takes them, and
// each of its inputs is visited without typing: focused, Return pressed,
// left. The field must keep its bytes, and so must undo and redo of what
// the visits recorded.
class FieldTextHarness
{
public:
    FieldTextHarness();
    ~FieldTextHarness();
    FieldTextHarness(const FieldTextHarness&) = delete;
    FieldTextHarness& operator=(const FieldTextHarness&) = delete;

    void run(const uint8_t* data, size_t size);

    // How many fields an input's first byte chooses among.
    int fieldCount() const { return int(m_targets.size()); }

private:
    struct Target
    {
        SoField* field;
        SoField* pristine; // the default it is put back to
        SoField* scratch;  // where its text is read back
    };

    void addNodeFields(SoNode* node, SoNode* pristine, SoNode* scratch);
    void addLoneField(const char* typeName);
    KalFieldEditors* chooseEditor(const EditorSet& set, SoField* field, int choice) const;

    void runSingle(FxSFieldWidget* editor, const Target& target, int route, int which, const QString& text);
    void runList(FxMFieldWidget* editor, const Target& target, int route, int which, const QString& text);
    // Types into a line edit as a person does (or into the spin box that
    // owns it), then presses Return.
    static void type(QLineEdit* line, const QString& text, bool paste);
    void undoAndRedo(const Target& target, int commands, const QString& text);
    static bool isTextPath(const EditorSet& set, KalFieldEditors* editor, const SoField* field);
    // The field holds `bytes` as its value, where it takes them.
    static void storeBytes(SoField* field, int which, const QByteArray& bytes);
    void checkUntouched(KalFieldEditors* editor, const Target& target, int which, const QByteArray& bytes);

    std::vector<SoNode*> m_nodes;
    std::vector<std::unique_ptr<SoField>> m_loneFields;
    std::vector<Target> m_targets;
    std::unique_ptr<EditorSet> m_plain;
    std::unique_ptr<EditorSet> m_german;
};
