#pragma once

#include <QPixmap>

// The icons of the editors' small buttons: "set to default" and "ignore",
// which every field editor carries, the popup editors' edit button and the
// list editors' row buttons.
class EditorIcons
{
public:
    static QPixmap defaultIcon();
    static QPixmap ignoreIcon();
    // The popup editors' button that opens the grid of cells.
    static QPixmap editIcon();
    // The list editors' row buttons.
    static QPixmap addIcon();
    static QPixmap deleteIcon();
    static QPixmap upIcon();
    static QPixmap downIcon();
};
