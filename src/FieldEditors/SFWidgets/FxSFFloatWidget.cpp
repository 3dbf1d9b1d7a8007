#include "FxSFFloatWidget.h"

FxSFFloatWidget::FxSFFloatWidget(const char* name)
    : FxSFRealWidget(name, "FxSFFloatWidget", SoSFFloat::getClassTypeId(), "SFFloat")
{}
