#include "FxSFColorWidget.h"

#include "FieldLineEdit.h"
#include "FieldWrite.h"
#include "KalSFSetValueCommand.h"
#include "LayoutMetrics.h"
#include "ModalDialogs.h"
#include "NumberInput.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoSFColor.h>

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>

#include <algorithm>
#include <cmath>

namespace {

int metric(const char* name)
{
    return LayoutMetrics::value(QLatin1String(name));
}

// A channel as the swatch shows it: truncated, and possibly out of range.
// Held within a span an int takes, which the swatch clamps or refuses
// anyway.
int channel(float component)
{
    const float scaled = component * 255.0f;
    if (std::isnan(scaled))
        return -1;
    return int(std::clamp(scaled, -1.0e6f, 1.0e6f));
}

} // namespace

FxSFColorWidget::FxSFColorWidget(const char* name)
    : FxSFieldWidget(name ? name : "FxSFColorWidget")
{
    handledType = SoSFColor::getClassTypeId();
    this->name = "SFColor";
}

void FxSFColorWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFColor"));
    FxSFieldWidget::createWidget();
    if (swatch)
        return;
    swatch = new QPushButton(frame);
    swatch->setObjectName(QStringLiteral("m_colorDisp"));
    swatch->setFixedHeight(metric("SFComponentHeight"));
    swatch->setFixedWidth(metric("SFColorDispWidth"));
    QPixmap black(swatch->size());
    black.fill(QColor(0, 0, 0, 255));
    swatch->setIcon(QIcon(black));
    editLayout->setSpacing(metric("SFColorSpacing"));
    editLayout->setContentsMargins(QMargins() + metric("SFColorMargin"));
    editLayout->addWidget(swatch, 0);

    const char* const texts[] = {QT_TR_NOOP("<p align=\"right\">R</p>"),
                                 QT_TR_NOOP("<p align=\"right\">G</p>"),
                                 QT_TR_NOOP("<p align=\"right\">B</p>")};
    for (size_t i = 0; i < lineEdits.size(); ++i) {
        auto* row = new QHBoxLayout;
        row->setSpacing(metric("SFColorInterSpacing"));
        row->setObjectName(QStringLiteral("SFColorLayout"));
        labels[i] = new QLabel(frame);
        labels[i]->setObjectName(QStringLiteral("SFColorLabel"));
        labels[i]->setFixedHeight(metric("SFComponentHeight"));
        labels[i]->setText(tr(texts[i]));
        lineEdits[i] = new FieldLineEdit(frame);
        lineEdits[i]->setObjectName(QStringLiteral("SFColorLine"));
        lineEdits[i]->setFixedHeight(metric("SFComponentHeight"));
        row->addWidget(labels[i]);
        row->addWidget(lineEdits[i]);
        editLayout->addLayout(row);
        connect(lineEdits[i], SIGNAL(returnPressed()), this, SLOT(setCommandValue()));
        connect(lineEdits[i], SIGNAL(editingFinished()), this, SLOT(setFocusLeaveEvent()));
    }
    connect(lineEdits[0], SIGNAL(textChanged(const QString&)), this, SLOT(changeRValue(const QString&)));
    connect(lineEdits[1], SIGNAL(textChanged(const QString&)), this, SLOT(changeGValue(const QString&)));
    connect(lineEdits[2], SIGNAL(textChanged(const QString&)), this, SLOT(changeBValue(const QString&)));
    connect(swatch, SIGNAL(clicked()), this, SLOT(getColorEditor()));
}

// A colour out of range leaves the swatch as it was; the numbers still go to
// the field as typed.
void FxSFColorWidget::repaintSwatch()
{
    if (!swatch)
        return;
    const int red = channel(r);
    const int green = channel(g);
    const int blue = channel(b);
    auto inRange = [](int value) { return value >= 0 && value <= 255; };
    if (!inRange(red) || !inRange(green) || !inRange(blue))
        return;
    const QRgb wanted = qRgb(red, green, blue);
    if (wanted == shown && swatch->icon().cacheKey() == iconKey)
        return;
    QPixmap pixmap(swatch->size());
    pixmap.fill(QColor(red, green, blue, 255));
    swatch->setIcon(QIcon(pixmap));
    shown = wanted;
    iconKey = swatch->icon().cacheKey();
}

void FxSFColorWidget::showComponents()
{
    const float components[] = {r, g, b};
    // Known before the text is set: setting it reads the component back.
    shownTexts.clear();
    for (size_t i = 0; i < lineEdits.size(); ++i) {
        QString text;
        text.setNum(components[i], 'g', 6);
        shownTexts.show(int(i), components[i], text);
        lineEdits[i]->setText(text);
    }
    for (QLineEdit* edit : lineEdits)
        edit->setCursorPosition(0);
}

// A text a float cannot hold ("nan", "inf", "1e39") keeps the component it
// had and marks it, so that the colour is not applied until it is
// corrected; unreadable text is 0, as it has always been. The text shown
// for a component stands for the field's own number, not its six digits.
void FxSFColorWidget::changeComponent(size_t index, float& component, const QString& str)
{
    unholdable[index] = !shownTexts.read(int(index), str, component);
    repaintSwatch();
}

void FxSFColorWidget::changeRValue(const QString& str)
{
    changeComponent(0, r, str);
}

void FxSFColorWidget::changeGValue(const QString& str)
{
    changeComponent(1, g, str);
}

void FxSFColorWidget::changeBValue(const QString& str)
{
    changeComponent(2, b, str);
}

void FxSFColorWidget::updateWidget()
{
    auto* typed = SoTypedObject(field).cast<SoSFColor>();
    if (typed && lineEdits[0]) {
        const SbColor colour = typed->getValue();
        r = colour[0];
        g = colour[1];
        b = colour[2];
        showComponents();
        repaintSwatch();
    }
    FxSFieldWidget::updateWidget();
}

void FxSFColorWidget::getColorEditor()
{
    if (!lineEdits[0])
        return;
    auto clamp = [](int value) { return qBound(0, value, 255); };
    const QColor initial(clamp(channel(r)), clamp(channel(g)), clamp(channel(b)));
    const QColor chosen = ModalDialogs::getColor(initial, frame, QString());
    if (!chosen.isValid())
        return;
    r = float(chosen.red() / 255.0);
    g = float(chosen.green() / 255.0);
    b = float(chosen.blue() / 255.0);
    showComponents();
    setCommandValue();
}

// The stored components go to the field, not the texts.
void FxSFColorWidget::applyChanges()
{
    auto* typed = SoTypedObject(field).cast<SoSFColor>();
    if (!typed || std::find(unholdable.begin(), unholdable.end(), true) != unholdable.end())
        return;
    FieldWrite::setValue(typed, SbColor(r, g, b));
    for (QLineEdit* edit : lineEdits) {
        if (edit)
            edit->setModified(false);
    }
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
}

bool FxSFColorWidget::edited()
{
    for (QLineEdit* edit : lineEdits) {
        if (edit && edit->isModified())
            return true;
    }
    return false;
}
