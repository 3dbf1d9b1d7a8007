#include "FxSFVec2i32Widget.h"

FxSFVec2i32Widget::FxSFVec2i32Widget(const char* name)
    : FxSFVec2iWidget(name, "FxSFVec2i32Widget")
{}
