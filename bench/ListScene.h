#pragma once
// The scene of the list benchmarks: two nodes whose float, string, vector,
// rotation and colour lists hold a million values each, with the plug-in
// loaded into the shown window. Made once per program, on first use.
#include "AllFieldsNode.h"

class QDockWidget;
class QTableWidget;

struct ListScene
{
    static constexpr int kRows = 1000000;
    // The lists by the benchmarks' argument. Each is compared with a bare
    // table of as many columns as it shows.
    static constexpr int kColorList = 4;
    static const char* label(int which);

    static ListScene& instance();

    // The list `which` of node `node`.
    SoMField* list(int node, int which) const;
    // The table of the list editor the dock shows, or null.
    QTableWidget* shownTable() const;
    // A figure for the colour list counts only if the swatches were painted:
    // the top row's swatch in the shown table must have the row's colour, as
    // the delegate truncates it to 0..255.
    bool topSwatchPainted(const SoMFColor& colors) const;

    QDockWidget* dock = nullptr;
    AllFieldsNode* nodes[2] = {nullptr, nullptr};

private:
    ListScene();
};
