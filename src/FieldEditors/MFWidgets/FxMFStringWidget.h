#pragma once

#include "FxMFieldWidget.h"

// Editor of SoMFString fields: each string shown and typed as it is, without
// the quotes and escapes of its text form. Every edit is recorded in the
// host's history.
class FxMFStringWidget : public FxMFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFStringWidget)

public:
    explicit FxMFStringWidget(const char* name = nullptr);

    void createWidget() override;
    void swapValues(int first, int second) override;
    void setValueFromText(int row, int column, QString text) override;
    QString getValueText(int row, int column) override;
    bool acceptField(SoField* field) override;
};
