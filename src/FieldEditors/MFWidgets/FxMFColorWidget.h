#pragma once

#include "FxMFVec3fWidget.h"

// Editor of SoMFColor fields: a swatch and the red, green and blue
// components of each colour. A component outside 0 to 1 is dropped; a
// colour chosen in the dialog replaces the whole value.
class FxMFColorWidget : public FxMFVec3fWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFColorWidget)

public:
    explicit FxMFColorWidget(const char* name = nullptr);

    void createWidget() override;
    // `value` is an SbColor.
    void setValueAt(int index, const void* value) override;
    bool acceptField(SoField* field) override;
    void setComponentValue(float value, int row, int component) override;
};
