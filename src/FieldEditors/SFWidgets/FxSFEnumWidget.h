#pragma once

#include "FxSFieldWidget.h"

class QComboBox;

// Editor of SoSFEnum fields: a combo box of the field's enum names, applied
// when the user picks one.
class FxSFEnumWidget : public FxSFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFEnumWidget)

public:
    explicit FxSFEnumWidget(const char* name = nullptr);

    void createWidget() override;
    void setField(SoField* field) override;
    void updateWidget() override;
    void applyChanges() override;

private:
    QComboBox* comboBox = nullptr;
};
