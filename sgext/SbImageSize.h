#pragma once

// Coin allocates an image as its width, height and components say before it
// reads a pixel ("30000 30000 4" is 3.6 GB, and past 2 GB the size
// overflows). An image is taken only when it declares no more pixels than
// its text holds values for: the editors' texts and the scene files kalhost
// opens answer to this one rule.
class SbImageSize
{
public:
    // values: how many pixel values follow width, height and components.
    static bool fits(long long width, long long height, long long values);
};
