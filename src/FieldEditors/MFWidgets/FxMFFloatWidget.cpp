#include "FxMFFloatWidget.h"

FxMFFloatWidget::FxMFFloatWidget(const char* name)
    : FxMFNumberWidget(name, "FxMFFloatWidget")
{}
