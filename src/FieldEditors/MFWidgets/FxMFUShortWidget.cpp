#include "FxMFUShortWidget.h"

FxMFUShortWidget::FxMFUShortWidget(const char* name)
    : FxMFNumberWidget(name, "FxMFUShortWidget")
{}
