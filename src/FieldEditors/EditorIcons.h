#pragma once

#include <QPixmap>

// The icons of the editors' small buttons: "set to default" and "ignore",
// which every field editor carries, and the popup editors' edit button.
class EditorIcons
{
public:
    static QPixmap defaultIcon();
    static QPixmap ignoreIcon();
    // The popup editors' button that opens the grid of cells.
    static QPixmap editIcon();
};
