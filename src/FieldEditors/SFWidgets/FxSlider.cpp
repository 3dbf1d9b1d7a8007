#include "FxSlider.h"

#include "FieldLineEdit.h"
#include "FieldRangeMap.h"
#include "KalFieldEditors.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSlider>

FxSlider::FxSlider(int inTable, KalFieldEditors* editor, QWidget* parent, int row, int column)
    : QFrame(parent)
    , inTable(inTable)
    , editor(editor)
    , row(row)
    , column(column)
{
    setObjectName(QStringLiteral("FxSliderFrame"));
    layout = new QHBoxLayout(this);
    if (inTable) {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(3);
    } else {
        layout->setContentsMargins(2, 2, 2, 2);
        layout->setSpacing(4);
    }
    layout->setObjectName(QStringLiteral("kalibraslider"));

    lineEdit = new FieldLineEdit(this);
    lineEdit->setObjectName(QStringLiteral("m_lineEdit"));
    slider = new QSlider(Qt::Horizontal, this);
    slider->setObjectName(QStringLiteral("m_slider"));
    slider->setTracking(true);
    checkBox = new QCheckBox(this);
    checkBox->setObjectName(QStringLiteral("m_checkBox"));
    checkBox->setToolTip(tr("Write the value while dragging"));
    layout->addWidget(checkBox, 0);
    layout->addWidget(slider, 0);
    layout->addWidget(lineEdit, 0);

    connect(slider, SIGNAL(sliderPressed()), this, SLOT(beginCallback()));
    connect(slider, SIGNAL(valueChanged(int)), this, SLOT(valueChangeSlot(int)));
    connect(slider, SIGNAL(sliderReleased()), this, SLOT(finishCallback()));
    checkBox->setChecked(notifyWhileDragging);
    connect(lineEdit, SIGNAL(returnPressed()), this, SLOT(changeValueFromEdit()));
    connect(lineEdit, SIGNAL(editingFinished()), this, SLOT(changeValueFromEdit()));
    connect(checkBox, SIGNAL(toggled(bool)), this, SLOT(eventNotify(bool)));
    notifyEnabled = true;
}

FxSlider::~FxSlider() = default;

void FxSlider::setValueText(QString) {}

void FxSlider::updateText() {}

void FxSlider::readText() {}

void FxSlider::setPosition(int) {}

void FxSlider::storeValueText() {}

QString FxSlider::textWithPrefix() const
{
    switch (base) {
    case 8:
        return QLatin1Char('0') + lineEdit->text();
    case 16:
        return QLatin1String("0x") + lineEdit->text();
    default:
        return lineEdit->text();
    }
}

QString FxSlider::fieldText() const
{
    return textWithPrefix();
}

void FxSlider::syncSlider()
{
    quietly([this] { slider->setValue(position); });
}

void FxSlider::notifyEditor()
{
    if (!editor)
        return;
    if (inTable) {
        editor->setRefreshEnabled(false);
        editor->setValueFromText(row, column, fieldText());
        editor->setRefreshEnabled(true);
    } else {
        editor->applyChanges();
    }
}

void FxSlider::showText(const QString& text)
{
    lineEdit->setText(text);
    lineEdit->setCursorPosition(0);
}

QString FxSlider::takeBase(const QString& text, bool& detectBase)
{
    if (detectBase) {
        base = integerBase(text);
        detectBase = false;
    }
    if (base == 8)
        return text.mid(1);
    if (base == 16)
        return text.mid(2);
    return text;
}

void FxSlider::changeValueFromEdit()
{
    if (!lineEdit->isModified())
        return;
    // The value from before the typed change is what undo goes back to.
    storeValueText();
    readText();
    syncSlider();
    // Return is followed by editingFinished for the same text: one change,
    // one write.
    lineEdit->setModified(false);
    notifyEditor();
}

void FxSlider::eventNotify(bool state)
{
    notifyWhileDragging = state;
}

void FxSlider::beginCallback()
{
    dragging = true;
    movedSincePress = false;
    storeValueText();
}

void FxSlider::valueChangeSlot(int newValue)
{
    if (!notifyEnabled)
        return;
    dragging = true;
    movedSincePress = true;
    setPosition(newValue);
    updateText();
    if (dragging && notifyWhileDragging)
        notifyEditor();
    dragging = false;
}

void FxSlider::finishCallback()
{
    dragging = false;
    if (movedSincePress)
        setPosition(slider->value());
    notifyEditor();
}
