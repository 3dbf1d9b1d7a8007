#pragma once

#include "FieldLineEdit.h"
#include "FieldText.h"
#include "FieldTextGuard.h"
#include "FieldWrite.h"
#include "FxSFieldWidget.h"
#include "KalSFSetValueCommand.h"
#include "NumberInput.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoSFName.h>
#include <Inventor/fields/SoSFString.h>

#include <QHBoxLayout>

// How a typed text editor reads and writes its own field type.
template <class Field>
struct TextFieldAccess;

template <>
struct TextFieldAccess<SoSFString>
{
    static SbString read(SoSFString* field) { return field->getValue(); }
    static void write(SoSFString* field, const SbString& text) { FieldWrite::setValue(field, text); }
};

template <>
struct TextFieldAccess<SoSFName>
{
    static SbString read(SoSFName* field) { return SbString(field->getValue().getString()); }
    static void write(SoSFName* field, const SbString& text)
    {
        FieldWrite::setValue(field, SbName(text.getString()));
    }
};

// The string, name and file path editors: one line edit showing the field's
// value (not its quoted text form) and writing it back when the user leaves
// it or presses Return. A field of another type is read and written through
// its text form.
template <class Field>
class FxSFTextWidget : public FxSFieldWidget
{
    Q_DISABLE_COPY(FxSFTextWidget)

    using Access = TextFieldAccess<Field>;

public:
    void createWidget() override
    {
        setFieldLabel(QLatin1String(typeText));
        FxSFieldWidget::createWidget();
        if (lineEdit)
            return;
        lineEdit = new FieldLineEdit(frame);
        lineEdit->setObjectName(QStringLiteral("lineEdit"));
        lineEdit->setAlignment(Qt::AlignLeft);
        editLayout->addWidget(lineEdit, 1);
        connect(lineEdit, SIGNAL(editingFinished()), this, SLOT(setCommandValue()));
    }

    // Signals are not blocked here, unlike the generic editor.
    void updateWidget() override
    {
        if (!lineEdit)
            return;
        SbString text;
        if (field) {
            if (auto* typed = SoTypedObject(field).cast<Field>())
                text = Access::read(typed);
            else
                field->get(text);
        }
        lineEdit->setText(FieldText::toText(text));
        FxSFieldWidget::updateWidget();
    }

    // Leaving the line edit applies it even when nothing was typed, and the
    // command is pushed all the same; a value the field already holds is
    // not written again, so leaving changes nothing and sets nothing off.
    void applyChanges() override
    {
        if (!lineEdit || !field)
            return;
        const QString shown = lineEdit->text();
        if (auto* typed = SoTypedObject(field).cast<Field>()) {
            const SbString current = Access::read(typed);
            const SbString text(FieldText::toBytes(shown, current).constData());
            // Only a value that is not there yet is refused: the field keeps
            // one it holds whatever Coin would make of its text.
            if (!(text == current) &&
                (!FieldTextGuard::quotable(shown) || !FieldTextGuard::namesFit(field, shown)))
                return;
            Access::write(typed, text);
        } else {
            // Another type's text is read by Coin, which must not meet a
            // number it would overrun on or quietly make 0 of.
            SbString current;
            field->get(current);
            const QByteArray text = FieldText::toBytes(shown, current);
            if (text != current.getString() &&
                (!FieldTextGuard::acceptable(shown) || !NumberInput::fitsField(field, shown) ||
                 !FieldTextGuard::imageFits(field, shown) || !FieldTextGuard::namesFit(field, shown)))
                return;
            FieldWrite::setText(field, text.constData());
        }
        SbString none;
        KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(field, none));
    }

    bool edited() override { return lineEdit && lineEdit->isModified(); }

protected:
    FxSFTextWidget(const char* name, const char* className, SoType handled, const char* extensionName)
        : FxSFieldWidget(name ? name : className)
        , typeText(extensionName)
    {
        handledType = handled;
        this->name = extensionName;
    }

    QLineEdit* lineEdit = nullptr;

private:
    const char* typeText;
};
