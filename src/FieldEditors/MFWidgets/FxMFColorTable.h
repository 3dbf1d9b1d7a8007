#pragma once

#include "FxMFieldTable.h"

// The table of a colour list: a swatch painted from each value, then its
// red, green and blue components from 0 to 1. A click on a swatch opens a
// colour dialog; the colour chosen there replaces the row's value.
class FxMFColorTable : public FxMFieldTable
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFColorTable)

public:
    FxMFColorTable(FxMFieldWidget* fieldWidget, QWidget* parent);

public slots:
    void getColorFromEditor(int row, int column);
};
