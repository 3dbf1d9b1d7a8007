#pragma once

#include <QLocale>

#include <memory>
#include <vector>

class KalFieldEditors;
class SoField;

// Every editor the plug-in registers, each built once with its widgets while
// `locale` is Qt's default: a validator takes the locale it is made under,
// which is how a German user's editors once read "1,5" as 0.
class EditorSet
{
public:
    explicit EditorSet(const QLocale& locale);
    ~EditorSet();
    EditorSet(const EditorSet&) = delete;
    EditorSet& operator=(const EditorSet&) = delete;

    // The editor of the field's own type, as the dock would choose it, or
    // the generic editor of single or multiple values.
    KalFieldEditors* specificFor(const SoField* field) const;
    KalFieldEditors* genericFor(const SoField* field) const;
    // The string editor, which shows a field of another type in its text
    // form and hands the text back to Coin.
    KalFieldEditors* stringEditor() const { return m_string; }

    const QLocale& locale() const { return m_locale; }

private:
    template <class Editor>
    Editor* add();

    QLocale m_locale;
    std::vector<std::unique_ptr<KalFieldEditors>> m_editors;
    KalFieldEditors* m_singleGeneric = nullptr;
    KalFieldEditors* m_listGeneric = nullptr;
    KalFieldEditors* m_string = nullptr;
};
