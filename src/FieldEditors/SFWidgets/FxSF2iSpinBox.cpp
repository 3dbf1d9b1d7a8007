#include "FxSF2iSpinBox.h"

#include "ComponentColumn.h"
#include "LayoutMetrics.h"
#include "NumberInput.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

#include <limits>

namespace {

const ComponentColumnStyle kStyle = {"SF2BoxVSpacing", "SF2BoxLayout", "SF4flabel", "SF2Box", -1, false};

struct SpinRange
{
    int kind;
    int minimum;
    int maximum;
};

const SpinRange kRanges[] = {
    {0, -32768, 32767},
    {1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()},
    {2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()},
};

} // namespace

FxSF2iSpinBox::FxSF2iSpinBox(const char* name)
    : FxSFieldWidget(name ? name : "FxSF2iSpinBox")
{}

void FxSF2iSpinBox::createWidget()
{
    FxSFieldWidget::createWidget();
    if (spinBoxes[0])
        return;
    editLayout->setSpacing(LayoutMetrics::value(QStringLiteral("SF2BoxHSpacing")));
    editLayout->setContentsMargins(QMargins() + LayoutMetrics::value(QStringLiteral("SF2BoxHMargin")));
    for (size_t i = 0; i < spinBoxes.size(); ++i) {
        spinBoxes[i] = new QSpinBox(frame);
        spinBoxes[i]->setObjectName(QLatin1String(kStyle.inputName));
        NumberInput::useFieldLocale(spinBoxes[i]);
        labels[i] = ComponentColumn::add(frame, editLayout, kStyle, spinBoxes[i]);
        connect(spinBoxes[i], SIGNAL(valueChanged(int)), this, SLOT(setCommandValue()));
    }
}

void FxSF2iSpinBox::setLabels(const QStringList& texts)
{
    for (int i = 0; i < 2 && i < texts.size(); ++i) {
        if (labels[size_t(i)])
            labels[size_t(i)]->setText(tr("<p>") + texts.at(i) + tr("</p>"));
    }
}

void FxSF2iSpinBox::setRangeKind(int kind)
{
    for (const SpinRange& range : kRanges) {
        if (range.kind != kind)
            continue;
        for (QSpinBox* box : spinBoxes) {
            if (box)
                box->setRange(range.minimum, range.maximum);
        }
    }
}
