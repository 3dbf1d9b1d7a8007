#pragma once

#include "FxPopupWidget.h"
#include "ShownComponents.h"

#include <Inventor/fields/SoSFMatrix.h>

// Editor of SoSFMatrix fields: a 4 x 4 grid, row by row.
class FxSFMatrixWidget : public FxPopupWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFMatrixWidget)

public:
    explicit FxSFMatrixWidget(const char* name = nullptr);

    void createWidget() override;
    void updateWidget() override;
    void applyChanges() override;
    // The generic editor's slot of the typed text stays visible beside it.
    using FxSFLineWidget::applyChanges;

private:
    // What the cells were last filled with.
    ShownComponents shown;
};
