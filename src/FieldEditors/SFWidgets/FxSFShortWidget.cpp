#include "FxSFShortWidget.h"

FxSFShortWidget::FxSFShortWidget(const char* name)
    : FxSFIntegerWidget(ShortSlider, name, "FxSFShortWidget", SoSFShort::getClassTypeId(), "SFShort")
{}
