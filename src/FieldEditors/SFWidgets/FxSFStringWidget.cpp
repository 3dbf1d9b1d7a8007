#include "FxSFStringWidget.h"

FxSFStringWidget::FxSFStringWidget(const char* name)
    : FxSFTextWidget(name, "FxSFStringWidget", SoSFString::getClassTypeId(), "SFString")
{}
