#include "FxSFVec2sWidget.h"

FxSFVec2sWidget::FxSFVec2sWidget(const char* name)
    : FxSFVec2iWidget(name, "FxSFVec2sWidget")
{}
