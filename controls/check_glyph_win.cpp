#include "controls/check_glyph_win.h"

#include <algorithm>

#include "platform/owned_win.h"

namespace {

// Colours of each look: the frame, the face inside it, the check mark and
// the greyed square.
struct Palette {
    COLORREF frame, face, mark, greyed;
};

constexpr Palette kPalettes[] = {
    /* Idle */ {RGB(96, 96, 96), RGB(255, 255, 255), RGB(32, 32, 32), RGB(128, 128, 128)},
    /* MouseOver */ {RGB(0, 120, 215), RGB(229, 241, 251), RGB(0, 84, 153), RGB(90, 140, 190)},
    /* Pushed */ {RGB(0, 84, 153), RGB(204, 228, 247), RGB(0, 60, 116), RGB(70, 110, 150)},
    /* Disabled */ {RGB(188, 188, 188), RGB(244, 244, 244), RGB(160, 160, 160), RGB(204, 204, 204)},
};

// Lengths of the 96-DPI design in pixels at `dpi`, never below one.
int Scaled(int pixelsAt96, int dpi) { return std::max(1, MulDiv(pixelsAt96, dpi, 96)); }

void Fill(HDC dc, int left, int top, int width, int height, COLORREF colour) {
    RECT rect{left, top, left + width, top + height};
    FillRect(dc, &rect, OwnedBrush(CreateSolidBrush(colour)).Get());
}

// The check mark as one column of pixels after the other, down for the short
// arm and up for the long one: every edge is a 45-degree pixel staircase, so
// no size needs smoothing.
void DrawMark(HDC dc, POINT centre, COLORREF colour, int dpi) {
    const int columns = Scaled(7, dpi);
    const int fall = Scaled(2, dpi);
    const int stroke = Scaled(3, dpi);
    const int height = columns - fall + stroke - 1;
    const int left = centre.x - columns / 2;
    const int highest = 2 * fall - (columns - 1);  // the long arm's tip, above the first column's top
    const int top = centre.y - height / 2 - highest;
    for (int column = 0; column < columns; ++column) {
        int drop = column <= fall ? column : 2 * fall - column;
        Fill(dc, left + column, top + drop, 1, stroke, colour);
    }
}

}  // namespace

int CheckGlyphSize(int dpi) { return Scaled(13, dpi); }

void DrawCheckGlyph(HDC dc, POINT topLeft, Glyph glyph, int dpi) {
    const Palette& colours = kPalettes[static_cast<int>(glyph.look)];
    const int size = CheckGlyphSize(dpi);
    const int frame = std::max(1, dpi / 96);  // a thin line up to twice the size
    Fill(dc, topLeft.x, topLeft.y, size, size, colours.frame);
    Fill(dc, topLeft.x + frame, topLeft.y + frame, size - 2 * frame, size - 2 * frame, colours.face);
    POINT centre{topLeft.x + size / 2, topLeft.y + size / 2};
    if (glyph.value == kChecked) DrawMark(dc, centre, colours.mark, dpi);
    if (glyph.value == kGreyed) {
        const int side = Scaled(7, dpi);
        Fill(dc, centre.x - side / 2, centre.y - side / 2, side, side, colours.greyed);
    }
}
