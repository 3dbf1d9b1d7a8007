#include "FxMFInt32Widget.h"

FxMFInt32Widget::FxMFInt32Widget(const char* name)
    : FxMFNumberWidget(name, "FxMFInt32Widget")
{}
