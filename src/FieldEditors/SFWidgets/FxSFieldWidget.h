#pragma once

#include "KalFieldEditors.h"

#include <QPixmap>

class FxSlider;
class QFrame;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSpacerItem;

// Base of every single-value field editor: a label with the field type's
// name, an edition frame into which the concrete editor puts its controls,
// and the "set to default" and "ignore" buttons. Numeric editors also get a
// slider frame, made here according to the numeric kind they pass.
class FxSFieldWidget : public KalFieldEditors
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFieldWidget)

public:
    // Numeric kinds, each with the slider frame it gets.
    enum NumericKind
    {
        NoSlider = 0,
        FloatSlider = 1,
        DoubleSlider = 2,
        Int32Slider = 3,
        UInt32Slider = 4,
        ShortSlider = 5,
        UShortSlider = 6,
    };

    explicit FxSFieldWidget(const char* name = nullptr);
    FxSFieldWidget(int kind, const char* name);
    ~FxSFieldWidget() override;

    void createWidget() override;
    void setField(SoField* field) override;
    void updateWidget() override;
    void setRefreshEnabled(bool enabled) override;
    void swapValues(int first, int second) override;
    void cellOperation(int row, int column) override;
    void setValueFromText(int row, int column, QString text) override;
    void setValueAt(int index, const void* value) override;

    // True when an input holds a change that was not applied yet.
    virtual bool edited();

    void setFieldLabel(const QString& text);

    SoField* getField() const { return field; }
    FxSlider* getSliderFrame() const { return sliderFrame; }

public slots:
    virtual void languageChange();
    virtual void setCommandValue();
    void setFocusLeaveEvent();
    void ignoreButtonStateChanged();
    virtual void setDefaultFieldValue();
    void applyChanges() override;

protected:
    QLabel* label = nullptr;
    QPushButton* defaultButton = nullptr;
    QPushButton* ignoreButton = nullptr;
    SoField* field = nullptr;
    QPixmap defaultIcon;
    QPixmap ignoreIcon;

    // Where concrete editors put their controls.
    QFrame* editionFrame = nullptr;
    QHBoxLayout* editLayout = nullptr;
    // The two spacers around the edition area; some editors resize them.
    QSpacerItem* leadingSpacer = nullptr;
    QSpacerItem* trailingSpacer = nullptr;
    // Made by the numeric constructor, null otherwise; a child of the frame.
    FxSlider* sliderFrame = nullptr;
};
