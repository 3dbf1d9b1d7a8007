#include "FxMFUInt32Widget.h"

FxMFUInt32Widget::FxMFUInt32Widget(const char* name)
    : FxMFNumberWidget(name, "FxMFUInt32Widget")
{}
