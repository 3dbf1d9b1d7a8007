#pragma once

#include "FxSFieldWidget.h"

class QCheckBox;

// Editor of SoSFBool fields: one check box, applied when clicked.
class FxSFBoolWidget : public FxSFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFBoolWidget)

public:
    explicit FxSFBoolWidget(const char* name = nullptr);

    void createWidget() override;
    void updateWidget() override;
    void applyChanges() override;

private:
    QCheckBox* checkBox = nullptr;
};
