#pragma once

#include "FxSFieldWidget.h"

#include <QList>

class QCheckBox;
class QVBoxLayout;

// Editor of SoSFBitMask fields: one check box per named bit. A change is
// written at once and, unlike every other edit, leaves nothing in the undo
// history.
class FxSFBitMaskWidget : public FxSFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFBitMaskWidget)

public:
    explicit FxSFBitMaskWidget(const char* name = nullptr);

    void createWidget() override;
    void destroyWidget() override;
    void setField(SoField* field) override;
    void applyChanges() override;

public slots:
    virtual void setBitMaskValue();

private:
    void clearBoxes();
    void collapseSpacers();

    QList<QCheckBox*> boxes;
    QVBoxLayout* boxLayout = nullptr;
};
