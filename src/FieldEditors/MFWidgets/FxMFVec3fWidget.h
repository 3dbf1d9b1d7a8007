#pragma once

#include "FxMFComponentWidget.h"

// Editor of SoMFVec3f fields. Setting one component is an operation of its
// own, so that an editor of three-component values built on it (a colour
// list) writes components the same way.
class FxMFVec3fWidget : public FxMFComponentWidget<SoMFVec3f>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFVec3fWidget)

public:
    explicit FxMFVec3fWidget(const char* name = nullptr);

    void setValueFromText(int row, int column, QString text) override;
    // The value first, then the row (the vector's index in the field), then
    // the component, 0 to 2.
    virtual void setComponentValue(float value, int row, int component);
};
