#include "FxSFUShortWidget.h"

FxSFUShortWidget::FxSFUShortWidget(const char* name)
    : FxSFIntegerWidget(UShortSlider, name, "FxSFUShortWidget", SoSFUShort::getClassTypeId(), "SFUShort")
{}
