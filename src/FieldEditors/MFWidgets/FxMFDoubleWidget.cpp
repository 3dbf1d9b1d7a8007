#include "FxMFDoubleWidget.h"

FxMFDoubleWidget::FxMFDoubleWidget(const char* name)
    : FxMFNumberWidget(name, "FxMFDoubleWidget")
{}
