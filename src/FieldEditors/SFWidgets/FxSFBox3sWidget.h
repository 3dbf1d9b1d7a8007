#pragma once

#include "FxPopupWidget.h"

#include <Inventor/fields/SoSFBox3s.h>

// Editor of SoSFBox3s fields: xmin, ymin, zmin over xmax, ymax, zmax.
class FxSFBox3sWidget : public FxPopupWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFBox3sWidget)

public:
    explicit FxSFBox3sWidget(const char* name = nullptr);

    void createWidget() override;
    void updateWidget() override;
    void applyChanges() override;
    // The generic editor's slot of the typed text stays visible beside it.
    using FxSFLineWidget::applyChanges;
};
