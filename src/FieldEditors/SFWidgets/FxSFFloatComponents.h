#pragma once

#include "ComponentColumn.h"
#include "FxSFieldWidget.h"
#include "KalSFSetValueCommand.h"
#include "LayoutMetrics.h"
#include "NumberInput.h"
#include "ShownComponents.h"

#include <KalServices.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include <array>

// What the vector editors on line edits share: N float components, one
// column each, applied on Return or when an edited line edit loses focus.
// The concrete editor says how its field's value maps to the components.
template <int N>
class FxSFFloatComponents : public FxSFieldWidget
{
    Q_DISABLE_COPY(FxSFFloatComponents)

public:
    bool edited() override
    {
        for (QLineEdit* edit : lineEdits) {
            if (edit && edit->isModified())
                return true;
        }
        return false;
    }

    void updateWidget() override
    {
        std::array<float, N> values{};
        if (!field || lineEdits[0] == nullptr || !readField(values))
            return;
        shown.clear();
        for (int i = 0; i < N; ++i) {
            QString text;
            text.setNum(values[size_t(i)], 'g', 6);
            lineEdits[size_t(i)]->setText(text);
            shown.show(i, values[size_t(i)], text);
        }
        cursorsToStart();
        FxSFieldWidget::updateWidget();
    }

    // An unparsable or empty component is written as 0. A component a float
    // cannot hold refuses the whole change: the validator keeps Return in
    // that input from applying it, but Return in another one applies every
    // component. A component whose text is still the one shown keeps the
    // field's own number, not the six digits it was shown with. These
    // editors keep no previous text: the command reads the field after the
    // write.
    void applyChanges() override
    {
        if (!field || lineEdits[0] == nullptr)
            return;
        std::array<float, N> values{};
        std::array<bool, N> kept{};
        for (int i = 0; i < N; ++i) {
            const QString text = lineEdits[size_t(i)]->text();
            kept[size_t(i)] = shown.isShown(i, text);
            if (!shown.read(i, text, values[size_t(i)]))
                return;
        }
        if (!writeField(values, kept))
            return;
        for (QLineEdit* edit : lineEdits)
            edit->setModified(false);
        SbString none;
        KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(field, none));
    }

protected:
    FxSFFloatComponents(const char* name, const char* className)
        : FxSFieldWidget(name ? name : className)
    {}

    // Builds the columns into the editor's row, after the base's layout.
    void buildColumns(const ComponentColumnStyle& style, const char* horizontalSpacing,
                      const char* horizontalMargin)
    {
        if (lineEdits[0])
            return;
        editLayout->setSpacing(LayoutMetrics::value(QLatin1String(horizontalSpacing)));
        editLayout->setContentsMargins(QMargins() + LayoutMetrics::value(QLatin1String(horizontalMargin)));
        for (int i = 0; i < N; ++i) {
            lineEdits[size_t(i)] = ComponentColumn::floatLineEdit(frame, style);
            labels[size_t(i)] = ComponentColumn::add(frame, editLayout, style, lineEdits[size_t(i)]);
            connect(lineEdits[size_t(i)], SIGNAL(editingFinished()), this, SLOT(setFocusLeaveEvent()));
            connect(lineEdits[size_t(i)], SIGNAL(returnPressed()), this, SLOT(setCommandValue()));
        }
    }

    void cursorsToStart()
    {
        for (QLineEdit* edit : lineEdits) {
            if (edit)
                edit->setCursorPosition(0);
        }
    }

    virtual bool readField(std::array<float, N>& values) = 0;
    // Writes the components unless the field holds them already; `kept`
    // tells which of them the user left as shown. False when the
    // components make no value of the field's type.
    virtual bool writeField(const std::array<float, N>& values, const std::array<bool, N>& kept) = 0;

    static bool allKept(const std::array<bool, N>& kept)
    {
        for (bool each : kept) {
            if (!each)
                return false;
        }
        return true;
    }

    std::array<QLineEdit*, N> lineEdits{};
    std::array<QLabel*, N> labels{};
    ShownComponents shown;
};
