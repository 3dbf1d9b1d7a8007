#include "FieldTextGuard.h"

namespace {
bool isNumberCharacter(QChar c)
{
    const char latin = c.toLatin1();
    return (latin >= '0' && latin <= '9') || (latin >= 'a' && latin <= 'f') ||
           (latin >= 'A' && latin <= 'F') || latin == 'x' || latin == 'X' || latin == '.' || latin == '+' ||
           latin == '-';
}
} // namespace

bool FieldTextGuard::acceptable(const QString& text)
{
    int run = 0;
    for (QChar c : text) {
        run = isNumberCharacter(c) ? run + 1 : 0;
        if (run > maxNumberRun)
            return false;
    }
    return true;
}
