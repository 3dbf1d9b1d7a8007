#pragma once

class SoMField;

// Coin keeps SoField::valueChanged() protected. This is the public way to the
// same effect after values were changed in place: the field is no longer at
// its default, and its auditors (sensors, engines, the container) are
// notified once for the whole change.
class SoMFieldNotify
{
public:
    static void valueChanged(SoMField* field);
};
