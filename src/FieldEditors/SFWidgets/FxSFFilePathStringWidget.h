#pragma once

#include "FxSFTextWidget.h"

class QPushButton;

// Editor of file path fields: the path as text, and a button that opens a
// file dialog. The path is read and written as a string field's value.
class FxSFFilePathStringWidget : public FxSFTextWidget<SoSFString>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFFilePathStringWidget)

public:
    explicit FxSFFilePathStringWidget(const char* name = nullptr);

    void createWidget() override;

public slots:
    void openFileDialog();
    bool edited() override;

private:
    QPushButton* openFileButton = nullptr;
};
