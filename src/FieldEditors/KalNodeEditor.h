#pragma once

#include "KalEditorDock.h"

class SoFieldContainer;

// The "Node Editor" dock: shows the most specific enabled editor for the node
// or other field container the user selected in the host. Field editors never
// fit a container, so with only field editors enabled it stays hidden.
class KalNodeEditor : public KalEditorDock
{
    Q_OBJECT
    Q_DISABLE_COPY(KalNodeEditor)

public:
    KalNodeEditor();
    ~KalNodeEditor() override;

    void createWidget() override;

public slots:
    void s_selectedNodeChanged(SoFieldContainer* container);
};
