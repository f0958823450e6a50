#pragma once
// Sizes of the program's own windows are twips (1440 per logical inch); the
// windows turn them into pixels at their actual DPI.
#include <cmath>

inline constexpr int kTwipsPerInch = 1440;

inline int TwipsToPixels(double twips, int dpi) { return static_cast<int>(std::lround(twips * dpi / kTwipsPerInch)); }

inline double PixelsToTwips(int pixels, int dpi) {
    return dpi > 0 ? static_cast<double>(pixels) * kTwipsPerInch / dpi : 0;
}
