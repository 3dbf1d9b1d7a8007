#pragma once

#include "FxSFLineWidget.h"

#include <QPixmap>

#include <vector>

class QFrame;
class QGridLayout;
class QPushButton;
class QValidator;

// A field with more numbers than fit on a row: its text form in a disabled
// line edit, and an edit button that opens a popup grid with one cell per
// number. Leaving a modified cell or pressing Return in one applies the grid.
class FxPopupWidget : public FxSFLineWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxPopupWidget)

public:
    FxPopupWidget(int rows, int columns, const char* name = nullptr);
    ~FxPopupWidget() override;

    void createWidget() override;
    bool edited() override;

    // 0 none; 1 16-bit integers; 2 any integer; 3 single precision; 4 any
    // double; other kinds change nothing.
    void setCellValidator(int kind);
    // The validator of a grid cell of that kind, in the C locale fields are
    // written in; null for kind 0 and unknown kinds.
    static QValidator* makeCellValidator(int kind, QObject* parent);
    // An empty popup grid for an editor's frame: a raised panel of the
    // popup metrics' size whose layout is the grid "m_popupFrameLayout".
    static QFrame* makePopupFrame(QWidget* parent);
    void resetCellCursors();

    QFrame* getPopupFrame() const { return popupFrame; }

public slots:
    void managePopFramePos();

protected:
    QPushButton* editButton = nullptr;
    QFrame* popupFrame = nullptr;
    QGridLayout* popupLayout = nullptr;
    std::vector<QLineEdit*> cells;
    int cellCount = 0;
    QPixmap editIcon;
    int rows = 0;
    int columns = 0;
};
