#include "FxSFLineWidget.h"

#include "FieldLineEdit.h"
#include "FieldText.h"
#include "FieldTextGuard.h"
#include "FieldWrite.h"
#include "KalSFSetValueCommand.h"
#include "NumberInput.h"

#include <KalServices.h>

#include <Inventor/fields/SoSField.h>

#include <QHBoxLayout>

FxSFLineWidget::FxSFLineWidget(const char* name)
    : FxSFieldWidget(name ? name : "FxSFLineWidget")
{
    handledType = SoSField::getClassTypeId();
    this->name = "SField";
}

FxSFLineWidget::~FxSFLineWidget() = default;

void FxSFLineWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SField"));
    FxSFieldWidget::createWidget();
    if (lineEdit)
        return;
    lineEdit = new FieldLineEdit(frame);
    lineEdit->setObjectName(QStringLiteral("lineEdit"));
    lineEdit->setAlignment(Qt::AlignLeft);
    editLayout->addWidget(lineEdit, 1);
    connect(lineEdit, SIGNAL(editingFinished()), this, SLOT(setFocusLeaveEvent()));
    connect(lineEdit, SIGNAL(returnPressed()), this, SLOT(applyChanges()));
    connect(lineEdit, SIGNAL(textChanged(const QString&)), this, SLOT(applyChanges(const QString&)));
    connect(lineEdit, SIGNAL(cursorPositionChanged(int, int)), this, SLOT(setCursorPosition(int, int)));
    connect(lineEdit, SIGNAL(textEdited(const QString&)), this, SLOT(applyChanges(const QString&)));
}

// The refresh that follows the editor's own write rewrites the whole text;
// signals are blocked so it is not taken for an edit, and the cursor goes
// back where the user was typing.
void FxSFLineWidget::updateWidget()
{
    if (!lineEdit)
        return;
    const bool blocked = lineEdit->blockSignals(true);
    if (field) {
        SbString text;
        field->get(text);
        lineEdit->setText(FieldText::toText(text));
    }
    FxSFieldWidget::updateWidget();
    lineEdit->setCursorPosition(cursorPosition);
    lineEdit->blockSignals(blocked);
}

bool FxSFLineWidget::edited()
{
    return lineEdit && lineEdit->isModified();
}

// One keystroke emits both textEdited and textChanged, so the text is
// written, and a command pushed, twice per keystroke. That is how this
// editor has always reported edits; it is kept. A text Coin's reader could
// overrun on, or with a number Coin would quietly make 0 of (beyond the
// range of the field's reals), is not handed to it at all: the field keeps
// its value, no command is pushed, and the text stays for the user.
void FxSFLineWidget::applyChanges(const QString&)
{
    if (!lineEdit || !field)
        return;
    const QString text = lineEdit->text();
    if (!FieldTextGuard::acceptable(text) || !NumberInput::fitsField(field, text) ||
        !FieldTextGuard::imageFits(field, text) || !FieldTextGuard::namesFit(field, text))
        return;
    const int position = lineEdit->cursorPosition();
    SbString current;
    field->get(current);
    FieldWrite::setText(field, FieldText::toBytes(text, current).constData());
    lineEdit->setCursorPosition(position);
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(field, none));
}

void FxSFLineWidget::setCursorPosition(int, int newPos)
{
    cursorPosition = newPos;
}
