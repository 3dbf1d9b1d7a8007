#include "FxMFPlaneWidget.h"

FxMFPlaneWidget::FxMFPlaneWidget(const char* name)
    : FxMFComponentWidget(name, "FxMFPlaneWidget")
{}
