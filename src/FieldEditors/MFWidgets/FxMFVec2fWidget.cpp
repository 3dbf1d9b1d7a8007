#include "FxMFVec2fWidget.h"

FxMFVec2fWidget::FxMFVec2fWidget(const char* name)
    : FxMFComponentWidget(name, "FxMFVec2fWidget")
{}
