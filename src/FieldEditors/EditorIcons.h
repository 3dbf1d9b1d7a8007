#pragma once

#include <QPixmap>

// The icons of the "set to default" and "ignore" buttons that every field
// editor carries.
class EditorIcons
{
public:
    static QPixmap defaultIcon();
    static QPixmap ignoreIcon();
};
