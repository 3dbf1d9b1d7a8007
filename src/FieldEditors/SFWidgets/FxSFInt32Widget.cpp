#include "FxSFInt32Widget.h"

FxSFInt32Widget::FxSFInt32Widget(const char* name)
    : FxSFIntegerWidget(Int32Slider, name, "FxSFInt32Widget", SoSFInt32::getClassTypeId(), "SFInt32")
{}
