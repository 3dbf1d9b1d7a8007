#include "FxSF4fBox.h"

namespace {
const ComponentColumnStyle kStyle = {"SF4fBoxVSpacing", "SF4FvLayout", "SF4flabel", "SF4fine", 0, true};
}

FxSF4fBox::FxSF4fBox(const char* name)
    : FxSFFloatComponents(name, "FxSF4fBox")
{}

void FxSF4fBox::createWidget()
{
    FxSFieldWidget::createWidget();
    buildColumns(kStyle, "SF4fBoxHSpacing", "SF4fBoxHMargin");
}

void FxSF4fBox::setLabels(const QStringList& texts)
{
    for (int i = 0; i < 4 && i < texts.size(); ++i) {
        if (labels[size_t(i)])
            labels[size_t(i)]->setText(tr("<p>") + texts.at(i) + tr("</p>"));
    }
}

void FxSF4fBox::setCursorsToStart()
{
    cursorsToStart();
}
