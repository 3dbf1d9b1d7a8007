#pragma once

#include <KalExtension.h>

class KalEditor;
class QDockWidget;
class SoField;

// The "Field Editor" dock: shows the most specific enabled editor for the
// field the user selected in the host.
class KalFieldEditorDockWin : public KalExtension
{
    Q_OBJECT
    Q_DISABLE_COPY(KalFieldEditorDockWin)

public:
    KalFieldEditorDockWin();
    ~KalFieldEditorDockWin() override;

    void activate() override;
    void deactivate() override;
    void hide() override;
    void createWidget() override;
    void show() override;
    void destroyWidget() override;

public slots:
    void s_selectedFieldChanged(SoField* field);

private:
    QDockWidget* dock = nullptr;
    KalEditor* editor = nullptr;
};
