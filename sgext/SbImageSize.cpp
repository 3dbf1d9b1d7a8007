#include "SbImageSize.h"

bool SbImageSize::fits(long long width, long long height, long long values)
{
    if (width <= 0 || height <= 0)
        return true;
    // Width and height are each bounded first, so that their product, the
    // pixels declared, cannot overflow.
    return width <= values && height <= values && width * height <= values;
}
