#include "ComponentColumn.h"

#include "LayoutMetrics.h"
#include "NumberInput.h"
#include "PanelCacheStyle.h"

#include <QDoubleValidator>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {
int metric(const char* name)
{
    return LayoutMetrics::value(QLatin1String(name));
}
} // namespace

QLabel* ComponentColumn::add(QWidget* frame, QHBoxLayout* row, const ComponentColumnStyle& style,
                             QWidget* input)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(metric(style.verticalSpacing));
    column->setObjectName(QLatin1String(style.columnName));
    if (style.columnMargin >= 0)
        column->setContentsMargins(QMargins() + style.columnMargin);
    auto* label = new QLabel(frame);
    label->setObjectName(QLatin1String(style.labelName));
    label->setFixedHeight(metric("SFVecLabelHeight"));
    column->addWidget(label, 0);
    input->setFixedHeight(metric("SFVecLineHeight"));
    column->addWidget(input, 0);
    column->setSizeConstraint(QLayout::SetMinimumSize);
    row->addLayout(column, 0);
    return label;
}

QLineEdit* ComponentColumn::floatLineEdit(QWidget* frame, const ComponentColumnStyle& style)
{
    auto* edit = new QLineEdit(frame);
    PanelCacheStyle::use(edit);
    edit->setObjectName(QLatin1String(style.inputName));
    auto* validator = new QDoubleValidator(-3.4028234663852886e38, 3.4028234663852886e38, 6, edit);
    NumberInput::useFieldLocale(validator);
    edit->setValidator(validator);
    if (style.alignLeft)
        edit->setAlignment(Qt::AlignLeft);
    return edit;
}
