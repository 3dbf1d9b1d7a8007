#include "FxSFBitMaskWidget.h"

#include "FieldWrite.h"

#include <SoTypedObject.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoSFBitMask.h>

#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QSpacerItem>
#include <QVBoxLayout>

namespace {

// The value the field's enum table gives a name. Coin keeps its own lookup
// (findEnumValue) protected, so the table is read entry by entry.
bool enumValueOf(const SoSFBitMask* field, const QString& text, int& value)
{
    const SbName wanted(text.toLatin1().constData());
    for (int i = 0; i < field->getNumEnums(); ++i) {
        SbName entryName;
        const int entryValue = field->getEnum(i, entryName);
        if (entryName == wanted) {
            value = entryValue;
            return true;
        }
    }
    return false;
}

} // namespace

FxSFBitMaskWidget::FxSFBitMaskWidget(const char* name)
    : FxSFieldWidget(name ? name : "FxSFBitMaskWidget")
{
    handledType = SoSFBitMask::getClassTypeId();
    this->name = "SFBitMask";
}

void FxSFBitMaskWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFBitMask"));
    FxSFieldWidget::createWidget();
    if (!boxLayout) {
        // In the row from the start, so that the row owns it even before
        // the first field arrives.
        boxLayout = new QVBoxLayout;
        boxLayout->setObjectName(QStringLiteral("bitMaskLayout"));
        editLayout->addLayout(boxLayout, 0);
    }
}

void FxSFBitMaskWidget::destroyWidget()
{
    clearBoxes();
    FxSFieldWidget::destroyWidget();
}

void FxSFBitMaskWidget::clearBoxes()
{
    qDeleteAll(boxes);
    boxes.clear();
}

void FxSFBitMaskWidget::collapseSpacers()
{
    if (leadingSpacer)
        leadingSpacer->changeSize(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum);
    if (trailingSpacer)
        trailingSpacer->changeSize(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum);
}

void FxSFBitMaskWidget::setField(SoField* newField)
{
    clearBoxes();
    FxSFieldWidget::setField(newField);
    auto* typed = SoTypedObject(newField).cast<SoSFBitMask>();
    if (!typed || !boxLayout) {
        collapseSpacers();
        return;
    }
    const int value = typed->getValue();
    for (int i = 0; i < typed->getNumEnums(); ++i) {
        SbName entryName;
        const int entryValue = typed->getEnum(i, entryName);
        // A zero entry names no bit: it gets no box.
        if (entryValue == 0)
            continue;
        auto* box = new QCheckBox(QString::fromLatin1(entryName.getString()), frame);
        box->setChecked((value & entryValue) != 0);
        boxLayout->addWidget(box, 0);
        connect(box, SIGNAL(clicked()), this, SLOT(setBitMaskValue()));
        boxes.append(box);
    }
    collapseSpacers();
}

void FxSFBitMaskWidget::applyChanges() {}

void FxSFBitMaskWidget::setBitMaskValue()
{
    auto* typed = SoTypedObject(field).cast<SoSFBitMask>();
    if (!typed)
        return;
    int mask = 0;
    for (int i = boxes.size() - 1; i >= 0; --i) {
        int bit = 0;
        if (boxes.at(i)->isChecked() && enumValueOf(typed, boxes.at(i)->text(), bit))
            mask |= bit;
    }
    FieldWrite::setValue(typed, mask);
}
