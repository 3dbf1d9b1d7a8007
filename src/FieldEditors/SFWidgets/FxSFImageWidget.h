#pragma once

#include "FxSFieldWidget.h"

#include <QPixmap>

class FxSFImageLabel;
class SoField;

// Shows an SoSFImage field as a thumbnail with an enlarged popup. The image
// is shown, never edited.
class FxSFImageWidget : public FxSFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFImageWidget)

public:
    explicit FxSFImageWidget(const char* name = nullptr);

    void createWidget() override;
    void updateWidget() override;

    // The field's image as a pixmap; empty for another field type or an
    // image without data.
    static QPixmap pixmapOf(SoField* field);

private:
    FxSFImageLabel* imageLabel = nullptr;
};
