#pragma once

#include "FxSFieldWidget.h"

class QLineEdit;

// The generic editor of any single-value field: the field's own text form in
// a line edit, written back on every keystroke. Every single-value field type
// without an editor of its own falls back on it.
class FxSFLineWidget : public FxSFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFLineWidget)

public:
    explicit FxSFLineWidget(const char* name = nullptr);
    ~FxSFLineWidget() override;

    void createWidget() override;
    void updateWidget() override;
    bool edited() override;
    // The slot below takes the typed text; the base's applyChanges() stays
    // callable on this class too.
    using FxSFieldWidget::applyChanges;

public slots:
    virtual void applyChanges(const QString& text);
    virtual void setCursorPosition(int oldPos, int newPos);

protected:
    QLineEdit* lineEdit = nullptr;
    int cursorPosition = 0;
};
