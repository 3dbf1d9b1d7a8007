#pragma once

#include "FieldWrite.h"
#include "FxSF2iSpinBox.h"
#include "KalSFSetValueCommand.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoSFVec2i32.h>
#include <Inventor/fields/SoSFVec2s.h>

#include <QSignalBlocker>
#include <QSpinBox>

#include <cstdint>

// What the two-component integer vector editors differ in: the field class,
// its vector and component types, its type text and the spin boxes' range
// kind (see FxSF2iSpinBox::setRangeKind).
template <class Field>
struct Vec2iEditorTraits;

template <>
struct Vec2iEditorTraits<SoSFVec2s>
{
    using Vector = SbVec2s;
    using Component = short;
    static constexpr const char* typeText = "SFVec2s";
    static constexpr int rangeKind = 0;
};

template <>
struct Vec2iEditorTraits<SoSFVec2i32>
{
    using Vector = SbVec2i32;
    using Component = int32_t;
    static constexpr const char* typeText = "SFVec2i32";
    static constexpr int rangeKind = 2;
};

// The editor of one two-component integer vector field class.
template <class Field>
class FxSFVec2iWidget : public FxSF2iSpinBox
{
    Q_DISABLE_COPY(FxSFVec2iWidget)

    using Traits = Vec2iEditorTraits<Field>;

public:
    void createWidget() override
    {
        setFieldLabel(QLatin1String(Traits::typeText));
        FxSF2iSpinBox::createWidget();
        setLabels({QStringLiteral("x"), QStringLiteral("y")});
        setRangeKind(Traits::rangeKind);
    }

    void updateWidget() override
    {
        auto* typed = SoTypedObject(field).cast<Field>();
        if (!typed || !spinBoxes[0])
            return;
        // Both boxes are filled before anything is applied: applied between
        // the two, the second box's old number went into the field.
        const typename Traits::Vector value = typed->getValue();
        const bool moved = spinBoxes[0]->value() != value[0] || spinBoxes[1]->value() != value[1];
        {
            const QSignalBlocker first(spinBoxes[0]);
            const QSignalBlocker second(spinBoxes[1]);
            spinBoxes[0]->setValue(value[0]);
            spinBoxes[1]->setValue(value[1]);
        }
        FxSF2iSpinBox::updateWidget();
        // A refresh that moves a box is applied as a change of the box, as
        // it always was: it records a command, and writes what the field
        // holds, that is nothing.
        if (moved)
            setCommandValue();
    }

    void applyChanges() override
    {
        auto* typed = SoTypedObject(field).cast<Field>();
        if (!typed || !spinBoxes[0])
            return;
        using Component = typename Traits::Component;
        FieldWrite::setValue(typed, typename Traits::Vector(Component(spinBoxes[0]->value()),
                                                            Component(spinBoxes[1]->value())));
        SbString none;
        KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
    }

protected:
    FxSFVec2iWidget(const char* name, const char* className)
        : FxSF2iSpinBox(name ? name : className)
    {
        handledType = Field::getClassTypeId();
        this->name = Traits::typeText;
    }
};
