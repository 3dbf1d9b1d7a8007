#pragma once

#include "FxMFLineWidget.h"

// The generic editor of any multiple-value field without an editor of its
// own: each value in the field's own text form. Unlike the numeric lists,
// every edit is recorded in the host's history.
class FxMFDefaultFieldWidget : public FxMFLineWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFDefaultFieldWidget)

public:
    explicit FxMFDefaultFieldWidget(const char* name = nullptr);

    void createWidget() override;
    void setValueFromText(int row, int column, QString text) override;
};
