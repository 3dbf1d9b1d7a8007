#include "FxMFVec4fWidget.h"

FxMFVec4fWidget::FxMFVec4fWidget(const char* name)
    : FxMFComponentWidget(name, "FxMFVec4fWidget")
{}
