#include "FxMFShortWidget.h"

FxMFShortWidget::FxMFShortWidget(const char* name)
    : FxMFNumberWidget(name, "FxMFShortWidget")
{}
