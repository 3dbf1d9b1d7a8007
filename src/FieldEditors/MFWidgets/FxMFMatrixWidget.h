#pragma once

#include "FxTablePopupWidget.h"
#include "ShownComponents.h"

// Editor of SoMFMatrix fields: every row of the table shows the whole
// field's text, and the popup edits the sixteen numbers of the current
// row's matrix, each keystroke written at once.
class FxMFMatrixWidget : public FxTablePopupWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFMatrixWidget)

public:
    explicit FxMFMatrixWidget(const char* name = nullptr);

    void createWidget() override;
    void setField(SoField* field) override;
    void updateWidget() override;
    bool acceptField(SoField* field) override;
    int getValueAlignment() override;
    QString getValueText(int row, int column) override;
    QString getComponentText(int row, int index) override;
    // Builds the matrix from the popup's sixteen texts; `text` is the one
    // that changed and is among them.
    void setValueFromText(int row, int index, QString text) override;

private:
    // The field's text is made once per change, not once per painted cell.
    QString m_fieldText;
    bool m_fieldTextKnown = false;
    // What the popup's lines were filled with.
    ShownComponents m_shown;
};
