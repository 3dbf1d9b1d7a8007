#pragma once

#include "FxMFComponentWidget.h"

// Editor of SoMFVec3f fields. Setting one component is an operation of its
// own, so that an editor of three-component values built on it (a colour
// list) writes components the same way; its values are read and written as
// vectors whether the field holds vectors or colours.
class FxMFVec3fWidget : public FxMFComponentWidget<SoMFVec3f>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFVec3fWidget)

public:
    explicit FxMFVec3fWidget(const char* name = nullptr);

    QString getValueText(int row, int column) override;
    void setValueFromText(int row, int column, QString text) override;
    void swapValues(int first, int second) override;
    // The value first, then the row (the vector's index in the field), then
    // the component, 0 to 2.
    virtual void setComponentValue(float value, int row, int component);

protected:
    FxMFVec3fWidget(int tableKind, const char* name, const char* className);

    // The value at `row` of a list of vectors or of colours; false where
    // the field holds no such value.
    bool vectorAt(int row, SbVec3f& vector) const;
    void storeVector(int row, const SbVec3f& vector);
    // Writes the value at `row` and records the write, unless it is the
    // value already there.
    void writeVector(int row, const SbVec3f& vector);
};
