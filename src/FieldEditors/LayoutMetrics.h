#pragma once

#include <QString>

// Every margin, spacing and fixed size of the editors' layouts, looked up by
// name so that no widget holds a layout number of its own.
class LayoutMetrics
{
public:
    // The metric's value in pixels (points for "labelPointSize"); 0 for a
    // name the table does not know. Names are case-sensitive.
    static int value(const QString& name);
};
