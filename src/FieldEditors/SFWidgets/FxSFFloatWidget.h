#pragma once

#include "FieldRange.h"
#include "FxSFieldWidget.h"

class FxRealSlider;

// Editor of SoSFFloat fields: a slider frame in single precision whose span
// comes from the field range table.
class FxSFFloatWidget : public FxSFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFFloatWidget)

public:
    explicit FxSFFloatWidget(const char* name = nullptr);
    ~FxSFFloatWidget() override;

    void createWidget() override;
    void setField(SoField* field) override;
    void updateWidget() override;
    void applyChanges() override;
    bool edited() override;

private:
    FxRealSlider* realSlider = nullptr;
    FieldRange valueRange;
};
