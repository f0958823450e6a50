#pragma once
// The toolbar's pictures, drawn at run time for the exact pixel size the
// window's DPI asks for, so they stay sharp at any scaling.
#include "platform/owned_win.h"

enum class PictureLook { Normal, Disabled, Hot };

// The six toolbar pictures side by side, each `size` pixels square: a 32-bit
// top-down DIB section with straight (not premultiplied) alpha, as a 32-bit
// image list takes it; empty when the system had no room for it.
OwnedBitmap DrawToolbarStrip(int size, PictureLook look);
