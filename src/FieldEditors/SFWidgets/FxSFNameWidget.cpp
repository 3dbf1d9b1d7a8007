#include "FxSFNameWidget.h"

FxSFNameWidget::FxSFNameWidget(const char* name)
    : FxSFTextWidget(name, "FxSFNameWidget", SoSFName::getClassTypeId(), "SFName")
{}
