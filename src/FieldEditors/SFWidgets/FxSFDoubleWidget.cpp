#include "FxSFDoubleWidget.h"

FxSFDoubleWidget::FxSFDoubleWidget(const char* name)
    : FxSFRealWidget(name, "FxSFDoubleWidget", SoSFDouble::getClassTypeId(), "SFDouble")
{}
