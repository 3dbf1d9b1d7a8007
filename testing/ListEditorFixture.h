#pragma once
#include "EditorDockFixture.h"

// The editor-dock fixture in a main window large enough for a list editor's
// table, its buttons and a few rows.
class ListEditorFixture : public EditorDockFixture
{
public:
    ListEditorFixture()
        : EditorDockFixture(QSize(1000, 700))
    {}
};
