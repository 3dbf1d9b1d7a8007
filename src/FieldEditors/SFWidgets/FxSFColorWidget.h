#pragma once

#include "FxSFieldWidget.h"
#include "ShownComponents.h"

#include <QRgb>

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
    void changeComponent(size_t index, float& component, const QString& str);

    QPushButton* swatch = nullptr;
    std::array<QLineEdit*, 3> lineEdits{};
    std::array<QLabel*, 3> labels{};
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    // Components whose text names a number a float cannot hold.
    std::array<bool, 3> unholdable{};
    // The texts the components were last shown with.
    ShownComponents shownTexts;
    // What the swatch shows now: every new icon costs Qt a rendering in
    // its pixmap cache and some bookkeeping, so an unchanged colour (a
    // refresh, another field of the same colour) keeps the icon it has.
    QRgb shown = qRgb(0, 0, 0);
    qint64 iconKey = 0;
};
