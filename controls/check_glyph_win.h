#pragma once
// The twelve glyphs of the check box, drawn at the window's DPI with whole
// device pixels, so they are as crisp at 144 and 192 DPI as at 96.
#include "controls/check.h"
#include "platform/win32.h"

// The side of the square glyph: 13 pixels at 96 DPI, in proportion above.
int CheckGlyphSize(int dpi);

// Draws the glyph into the square of that size at `topLeft`.
void DrawCheckGlyph(HDC dc, POINT topLeft, Glyph glyph, int dpi);
