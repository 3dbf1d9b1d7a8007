#pragma once

#include "FxSFieldWidget.h"

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

// Editor of SoSFColor fields: red, green and blue as numbers, a swatch of
// the colour, and the colour dialog behind the swatch.
class FxSFColorWidget : public FxSFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFColorWidget)

public:
    explicit FxSFColorWidget(const char* name = nullptr);

    void createWidget() override;
    void updateWidget() override;
    void applyChanges() override;
    bool edited() override;

public slots:
    void changeRValue(const QString& str);
    void changeGValue(const QString& str);
    void changeBValue(const QString& str);
    void getColorEditor();

private:
    void repaintSwatch();
    void showComponents();

    QPushButton* swatch = nullptr;
    std::array<QLineEdit*, 3> lineEdits{};
    std::array<QLabel*, 3> labels{};
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
};
