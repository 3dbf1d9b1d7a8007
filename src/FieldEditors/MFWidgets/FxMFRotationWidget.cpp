#include "FxMFRotationWidget.h"

FxMFRotationWidget::FxMFRotationWidget(const char* name)
    : FxMFComponentWidget(name, "FxMFRotationWidget")
{}
