#include "FxSFieldWidget.h"

#include "DefaultFieldValues.h"
#include "EditorIcons.h"
#include "FieldText.h"
#include "FieldTextGuard.h"
#include "FieldWrite.h"
#include "FxIntSlider.h"
#include "FxRealSlider.h"
#include "FxUIntSlider.h"
#include "KalFieldIgnoredCommand.h"
#include "KalFieldSetDefaultCommand.h"
#include "LayoutMetrics.h"

#include <KalServices.h>

#include <Inventor/fields/SoField.h>

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpacerItem>

namespace {

int metric(const char* name)
{
    return LayoutMetrics::value(QLatin1String(name));
}

// The slider frame each numeric kind gets.
FxSlider* makeSliderFrame(int kind, KalFieldEditors* editor, QWidget* parent)
{
    switch (kind) {
    case FxSFieldWidget::FloatSlider:
        return new FxRealSlider(0, editor, parent, true, 0, 1);
    case FxSFieldWidget::DoubleSlider:
        return new FxRealSlider(0, editor, parent, false, 0, 1);
    case FxSFieldWidget::Int32Slider:
        return new FxIntSlider(1, 0, editor, parent, 0, 1);
    case FxSFieldWidget::UInt32Slider:
        return new FxUIntSlider(2, 0, editor, parent, 0, 1);
    case FxSFieldWidget::ShortSlider:
        return new FxIntSlider(3, 0, editor, parent, 0, 1);
    case FxSFieldWidget::UShortSlider:
        return new FxUIntSlider(4, 0, editor, parent, 0, 1);
    default:
        return nullptr;
    }
}

} // namespace

FxSFieldWidget::FxSFieldWidget(const char* name)
    : defaultIcon(EditorIcons::defaultIcon())
    , ignoreIcon(EditorIcons::ignoreIcon())
{
    if (name) {
        setObjectName(QLatin1String(name));
        // The frame carries the editor's name too, so that the editor can be
        // found by name in the window it is shown in.
        frame->setObjectName(QLatin1String(name));
    }
}

FxSFieldWidget::FxSFieldWidget(int kind, const char* name)
    : FxSFieldWidget(name)
{
    sliderFrame = makeSliderFrame(kind, this, frame);
}

FxSFieldWidget::~FxSFieldWidget() = default;

void FxSFieldWidget::setFieldLabel(const QString& text)
{
    if (!label)
        label = new QLabel(frame);
    if (label->text().isEmpty())
        label->setText(tr("<p align=\"center\">") + text + tr("</p>"));
}

void FxSFieldWidget::createWidget()
{
    KalFieldEditors::createWidget();
    if (editionFrame)
        return;

    frame->setFrameShape(QFrame::Box);
    frame->setFrameShadow(QFrame::Plain);
    frame->setLineWidth(metric("frameLineWidth"));

    auto* outer = new QHBoxLayout(frame);
    outer->setContentsMargins(QMargins() + metric("SFieldLayoutMargin"));
    outer->setSpacing(metric("SFieldLayoutSpacing"));
    outer->setObjectName(QStringLiteral("SFieldLayout"));

    if (!label)
        label = new QLabel(frame);
    label->setObjectName(QStringLiteral("m_label"));
    QFont font = label->font();
    font.setPointSize(metric("labelPointSize"));
    label->setFont(font);
    label->setFrameShape(QFrame::Box);
    label->setFrameShadow(QFrame::Plain);
    label->setLineWidth(metric("labelLineWidth"));
    label->setScaledContents(true);
    outer->addWidget(label, 0);

    leadingSpacer = new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Minimum);
    outer->addItem(leadingSpacer);

    auto* editionArea = new QHBoxLayout;
    editionArea->setContentsMargins(QMargins() + metric("SFEditionAreaLayMargin"));
    editionArea->setSpacing(metric("SFEditionAreaLaySpacing"));
    editionArea->setObjectName(QStringLiteral("SFieldEditionAreaLayout"));

    editionFrame = new QFrame(frame);
    editionFrame->setObjectName(QStringLiteral("m_editionFrame"));
    editionFrame->setFrameShape(QFrame::Box);
    editionFrame->setFrameShadow(QFrame::Plain);
    editionFrame->setLineWidth(metric("frameLineWidth"));
    editLayout = new QHBoxLayout(editionFrame);
    editLayout->setContentsMargins(QMargins() + metric("SFieldEditLayoutMargin"));
    editLayout->setSpacing(metric("SFieldEditLayoutSpacing"));
    editLayout->setObjectName(QStringLiteral("editLayout"));
    if (sliderFrame) {
        sliderFrame->setParent(editionFrame);
        editLayout->addWidget(sliderFrame, 1);
    }
    editionArea->addWidget(editionFrame, 1);
    outer->addLayout(editionArea, 1);

    trailingSpacer = new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Minimum);
    outer->addItem(trailingSpacer);

    // Deliberately the same object name as the outer layout.
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(QMargins() + metric("SFButtonLayoutMargin"));
    buttons->setSpacing(metric("SFButtonLayoutSpacing"));
    buttons->setObjectName(QStringLiteral("SFieldLayout"));

    const QSize buttonSize(metric("buttonWidth"), metric("buttonHeight"));
    defaultButton = new QPushButton(frame);
    defaultButton->setObjectName(QStringLiteral("m_defaultButton"));
    defaultButton->setMaximumSize(buttonSize);
    defaultButton->setIcon(QIcon(defaultIcon));
    buttons->addWidget(defaultButton);

    ignoreButton = new QPushButton(frame);
    ignoreButton->setObjectName(QStringLiteral("m_ignoreButton"));
    ignoreButton->setMaximumSize(buttonSize);
    ignoreButton->setIcon(QIcon(ignoreIcon));
    ignoreButton->setCheckable(true);
    buttons->addWidget(ignoreButton);
    outer->addLayout(buttons, 0);
    outer->setSizeConstraint(QLayout::SetMinimumSize);
    // A dock is much taller than an editor's rows; they stay together at its
    // top instead of spreading over its height.
    outer->setAlignment(Qt::AlignTop);

    connect(defaultButton, SIGNAL(clicked()), this, SLOT(setDefaultFieldValue()));
    connect(ignoreButton, SIGNAL(released()), this, SLOT(ignoreButtonStateChanged()));
    defaultButton->setFocusPolicy(Qt::NoFocus);
    ignoreButton->setFocusPolicy(Qt::NoFocus);
    languageChange();
}

void FxSFieldWidget::setField(SoField* newField)
{
    field = newField;
    KalFieldEditors::setField(newField);
}

void FxSFieldWidget::updateWidget()
{
    if (field && ignoreButton)
        ignoreButton->setChecked(field->isIgnored());
}

void FxSFieldWidget::setRefreshEnabled(bool) {}

void FxSFieldWidget::swapValues(int, int) {}

void FxSFieldWidget::cellOperation(int, int) {}

void FxSFieldWidget::setValueFromText(int, int, QString) {}

void FxSFieldWidget::setValueAt(int, const void*) {}

bool FxSFieldWidget::edited()
{
    return false;
}

void FxSFieldWidget::languageChange()
{
    if (!defaultButton || !ignoreButton)
        return;
    defaultButton->setText(QString());
    defaultButton->setToolTip(tr("Set to default"));
    ignoreButton->setText(QString());
    ignoreButton->setToolTip(tr("Ignore this field"));
}

void FxSFieldWidget::setCommandValue()
{
    applyChanges();
}

void FxSFieldWidget::setFocusLeaveEvent()
{
    if (edited())
        applyChanges();
}

void FxSFieldWidget::ignoreButtonStateChanged()
{
    if (!field || !ignoreButton)
        return;
    const bool checked = ignoreButton->isChecked();
    field->setIgnored(checked);
    KalServices::getInstance()->pushCommand(new KalFieldIgnoredCommand(field, checked));
}

void FxSFieldWidget::setDefaultFieldValue()
{
    SoField* defaultField = DefaultFieldValues::defaultFieldFor(field);
    if (!defaultField)
        return;
    // The default goes in before the command is made, so the command records
    // the default as its previous value too: undoing a reset keeps the
    // default. That is how resets have always behaved here.
    SbString text;
    defaultField->get(text);
    if (!FieldTextGuard::acceptable(FieldText::toText(text)))
        return;
    FieldWrite::setText(field, text);
    KalServices::getInstance()->pushCommand(new KalFieldSetDefaultCommand(field, defaultField));
}

void FxSFieldWidget::applyChanges() {}
