#pragma once

#include "FieldTextGuard.h"
#include "FxSFieldWidget.h"
#include "KalSFSetValueCommand.h"
#include "NumberInput.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoSFName.h>
#include <Inventor/fields/SoSFString.h>

#include <QHBoxLayout>
#include <QLineEdit>

// How a typed text editor reads and writes its own field type.
template <class Field>
struct TextFieldAccess;

template <>
struct TextFieldAccess<SoSFString>
{
    static SbString read(SoSFString* field) { return field->getValue(); }
    static void write(SoSFString* field, const SbString& text) { field->setValue(text); }
};

template <>
struct TextFieldAccess<SoSFName>
{
    static SbString read(SoSFName* field) { return SbString(field->getValue().getString()); }
    static void write(SoSFName* field, const SbString& text) { field->setValue(SbName(text.getString())); }
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
        lineEdit = new QLineEdit(frame);
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
        lineEdit->setText(QString::fromUtf8(text.getString()));
        FxSFieldWidget::updateWidget();
    }

    void applyChanges() override
    {
        if (!lineEdit || !field)
            return;
        const SbString text(lineEdit->text().toUtf8().constData());
        if (auto* typed = SoTypedObject(field).cast<Field>()) {
            if (!FieldTextGuard::quotable(lineEdit->text()))
                return;
            Access::write(typed, text);
        } else {
            // Another type's text is read by Coin, which must not meet a
            // number it would overrun on or quietly make 0 of.
            if (!FieldTextGuard::acceptable(lineEdit->text()) ||
                !NumberInput::fitsField(field, lineEdit->text()) ||
                !FieldTextGuard::imageFits(field, lineEdit->text()))
                return;
            field->set(text.getString());
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
