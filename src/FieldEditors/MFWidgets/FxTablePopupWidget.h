#pragma once

#include "FxMFieldWidget.h"

#include <vector>

class FxTablePopupLineEdit;
class QFrame;
class QGridLayout;

// A list editor whose values have more numbers than a table row shows well:
// the table shows each value whole, and an edit button opens, beside the
// editor, a popup grid with one line per number of the current row's value.
class FxTablePopupWidget : public FxMFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxTablePopupWidget)

public:
    FxTablePopupWidget(int rows, int columns, const char* name = nullptr);
    ~FxTablePopupWidget() override;

    void createWidget() override;
    void deactivate() override;
    void setField(SoField* field) override;
    void updateWidget() override;

    // The text of number `index` of the value at `row`, for the popup.
    virtual QString getComponentText(int row, int index);

    // 0 none; 1 16-bit integers; 2 any integer; 3 single precision; 4 any
    // double.
    void setPopupValidators(int kind);
    // The texts of the popup's lines, in grid order.
    QStringList popupTexts() const;

    QFrame* getPopupFrame() const { return m_popupFrame; }
    QPushButton* getEditButton() const { return m_editButton; }

public slots:
    void setEditFrame();

protected:
    int m_popupRows;
    int m_popupColumns;
    QPushButton* m_editButton = nullptr;
    QFrame* m_popupFrame = nullptr;
    QGridLayout* m_popupLayout = nullptr;
    std::vector<FxTablePopupLineEdit*> m_lineEdits;
    QPixmap m_editIcon;

private:
    void closePopup();
    void fillPopup(int row);
    void placePopup();
};
