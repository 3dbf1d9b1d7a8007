#include "FxMFVec2i32Widget.h"

FxMFVec2i32Widget::FxMFVec2i32Widget(const char* name)
    : FxMFComponentWidget(name, "FxMFVec2i32Widget")
{}
