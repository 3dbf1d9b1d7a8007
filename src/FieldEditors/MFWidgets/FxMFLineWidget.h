#pragma once

#include "FxMFieldWidget.h"

// A list of scalars in a one-column table, each value in the field's own
// text form. The numeric list editors build on it. Values typed into a
// numeric list are written into the field but not recorded in the host's
// history: that is how the numeric lists have always been edited.
class FxMFLineWidget : public FxMFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFLineWidget)

public:
    explicit FxMFLineWidget(const char* name = nullptr);

    void createWidget() override;
    void swapValues(int first, int second) override;
    void setValueFromText(int row, int column, QString text) override;
    QString getValueText(int row, int column) override;
    bool acceptField(SoField* field) override;

protected:
    // Writes one value from its text; false when the field refused it or
    // the row is not one of the field's.
    bool writeText(int row, const QString& text);
};
