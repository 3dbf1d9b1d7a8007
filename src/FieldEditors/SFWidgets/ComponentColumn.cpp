#include "ComponentColumn.h"

#include "FieldLineEdit.h"
#include "LayoutMetrics.h"
#include "NumberInput.h"

#include <QDoubleValidator>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {
int metric(const char* name)
{
    return LayoutMetrics::value(QLatin1String(name));
}

// The caption's fixed height is less than a line of the default font, which
// cut the tail off "y"; the caption's font shrinks until a whole line fits.
void fitFontToHeight(QLabel* label, int height)
{
    QFont font = label->font();
    qreal size = font.pointSizeF();
    while (size > 5 && QFontMetrics(font).height() > height) {
        size -= 0.5;
        font.setPointSizeF(size);
    }
    label->setFont(font);
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
    fitFontToHeight(label, label->height());
    column->addWidget(label, 0);
    input->setFixedHeight(metric("SFVecLineHeight"));
    column->addWidget(input, 0);
    column->setSizeConstraint(QLayout::SetMinimumSize);
    row->addLayout(column, 0);
    return label;
}

QLineEdit* ComponentColumn::floatLineEdit(QWidget* frame, const ComponentColumnStyle& style)
{
    auto* edit = new FieldLineEdit(frame);
    edit->setObjectName(QLatin1String(style.inputName));
    auto* validator = new QDoubleValidator(-3.4028234663852886e38, 3.4028234663852886e38, 6, edit);
    NumberInput::useFieldLocale(validator);
    edit->setValidator(validator);
    if (style.alignLeft)
        edit->setAlignment(Qt::AlignLeft);
    return edit;
}
