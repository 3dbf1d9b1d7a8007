#pragma once

#include "KalEditorDock.h"

class SoField;

// The "Field Editor" dock: shows the most specific enabled editor for the
// field the user selected in the host.
class KalFieldEditorDockWin : public KalEditorDock
{
    Q_OBJECT
    Q_DISABLE_COPY(KalFieldEditorDockWin)

public:
    KalFieldEditorDockWin();
    ~KalFieldEditorDockWin() override;

    void createWidget() override;

public slots:
    void s_selectedFieldChanged(SoField* field);
};
