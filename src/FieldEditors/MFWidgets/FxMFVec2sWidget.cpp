#include "FxMFVec2sWidget.h"

FxMFVec2sWidget::FxMFVec2sWidget(const char* name)
    : FxMFComponentWidget(name, "FxMFVec2sWidget")
{}
