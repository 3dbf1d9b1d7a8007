#include "FxSFUInt32Widget.h"

FxSFUInt32Widget::FxSFUInt32Widget(const char* name)
    : FxSFIntegerWidget(UInt32Slider, name, "FxSFUInt32Widget", SoSFUInt32::getClassTypeId(), "SFUInt32")
{}
