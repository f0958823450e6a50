#include "app/toolbar_pictures_win.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

namespace {

// Pictures are designed on a 100 x 100 grid and drawn four times larger than
// shown; averaging the samples gives smooth edges without GDI+.
constexpr int kSupersample = 4;
constexpr double kPi = 3.14159265358979323846;

using Pixels = std::vector<std::uint32_t>;  // 0xAARRGGBB, row by row

// Maps the design grid onto a square canvas of `size` pixels.
struct Grid {
    int size;
    int At(double units) const { return static_cast<int>(std::lround(units * size / 100.0)); }
    POINT P(double x, double y) const { return {At(x), At(y)}; }
};

class Brush {
public:
    Brush(HDC dc, COLORREF colour) : dc_(dc), brush_(CreateSolidBrush(colour)) {
        old_ = SelectObject(dc_, brush_.Get());
        oldPen_ = SelectObject(dc_, GetStockObject(NULL_PEN));
    }
    ~Brush() {
        SelectObject(dc_, oldPen_);
        SelectObject(dc_, old_);
    }
    Brush(const Brush&) = delete;
    Brush& operator=(const Brush&) = delete;

private:
    HDC dc_;
    OwnedBrush brush_;
    HGDIOBJ old_;
    HGDIOBJ oldPen_;
};

void Polygon(HDC dc, const Grid& g, COLORREF colour, std::initializer_list<POINT> designPoints) {
    std::vector<POINT> points;
    for (POINT p : designPoints) points.push_back(g.P(p.x, p.y));
    Brush brush(dc, colour);
    ::Polygon(dc, points.data(), static_cast<int>(points.size()));
}

void Box(HDC dc, const Grid& g, COLORREF colour, double left, double top, double right, double bottom) {
    Brush brush(dc, colour);
    Rectangle(dc, g.At(left), g.At(top), g.At(right) + 1, g.At(bottom) + 1);
}

void Disc(HDC dc, const Grid& g, COLORREF colour, double cx, double cy, double radius) {
    Brush brush(dc, colour);
    Ellipse(dc, g.At(cx - radius), g.At(cy - radius), g.At(cx + radius) + 1, g.At(cy + radius) + 1);
}

POINT OnCircle(const Grid& g, double radius, double angle) {
    return g.P(50 + radius * std::cos(angle), 50 + radius * std::sin(angle));
}

void Glyph(HDC dc, const Grid& g, const char* text) {
    OwnedFont font(CreateFontA(-g.At(70), 0, 0, 0, FW_BOLD, 0, 0, 0, ANSI_CHARSET, OUT_TT_PRECIS,
                               CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY, VARIABLE_PITCH | FF_SWISS, "Arial"));
    HGDIOBJ old = SelectObject(dc, font.Get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(255, 255, 255));
    RECT area{0, g.At(4), g.size, g.size};
    DrawTextA(dc, text, -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(dc, old);
}

// A floppy disk.
void PaintSave(HDC dc, const Grid& g) {
    Polygon(dc, g, RGB(47, 109, 181), {{10, 10}, {78, 10}, {90, 22}, {90, 90}, {10, 90}});
    Box(dc, g, RGB(216, 222, 230), 28, 10, 70, 38);
    Box(dc, g, RGB(47, 109, 181), 55, 15, 63, 33);
    Box(dc, g, RGB(255, 255, 255), 20, 52, 80, 90);
    Box(dc, g, RGB(160, 190, 225), 27, 62, 73, 66);
    Box(dc, g, RGB(160, 190, 225), 27, 74, 73, 78);
}

// An open folder.
void PaintLoad(HDC dc, const Grid& g) {
    Polygon(dc, g, RGB(214, 150, 30), {{6, 18}, {38, 18}, {46, 27}, {86, 27}, {86, 84}, {6, 84}});
    Polygon(dc, g, RGB(247, 201, 72), {{20, 40}, {98, 40}, {84, 84}, {6, 84}});
}

// One tooth and the gap after it: radius, and angle as a share of the tooth's step.
struct ToothCorner {
    double radius;
    double share;
};
constexpr ToothCorner kToothOutline[] = {{33, 0}, {46, 0.1}, {46, 0.4}, {33, 0.5}, {33, 0.75}};

// A gear with a hole, filled alternately so the hole stays clear.
void PaintSettings(HDC dc, const Grid& g) {
    constexpr int kTeeth = 8;
    constexpr int kHoleCorners = 24;
    std::vector<POINT> points;
    for (int tooth = 0; tooth < kTeeth; ++tooth) {
        double step = 2 * kPi / kTeeth;
        double base = tooth * step;
        for (const ToothCorner& corner : kToothOutline)
            points.push_back(OnCircle(g, corner.radius, base + corner.share * step));
    }
    for (int corner = 0; corner < kHoleCorners; ++corner)
        points.push_back(OnCircle(g, 14, corner * 2 * kPi / kHoleCorners));
    INT counts[] = {kTeeth * static_cast<int>(std::size(kToothOutline)), kHoleCorners};
    SetPolyFillMode(dc, ALTERNATE);
    Brush brush(dc, RGB(96, 110, 128));
    PolyPolygon(dc, points.data(), counts, 2);
}

// "i" on a blue disc.
void PaintAbout(HDC dc, const Grid& g) {
    Disc(dc, g, RGB(47, 109, 181), 50, 50, 45);
    Disc(dc, g, RGB(255, 255, 255), 50, 27, 8);
    Box(dc, g, RGB(255, 255, 255), 42, 41, 58, 78);
}

// "?" on a green disc.
void PaintHelp(HDC dc, const Grid& g) {
    Disc(dc, g, RGB(46, 158, 91), 50, 50, 45);
    Glyph(dc, g, "?");
}

// A door with an arrow leaving through it.
void PaintExit(HDC dc, const Grid& g) {
    Box(dc, g, RGB(140, 98, 57), 10, 6, 58, 94);
    Box(dc, g, RGB(189, 140, 90), 17, 13, 51, 87);
    Disc(dc, g, RGB(140, 98, 57), 44, 52, 4);
    Polygon(dc, g, RGB(214, 60, 50), {{38, 39}, {64, 39}, {64, 24}, {96, 50}, {64, 76}, {64, 61}, {38, 61}});
}

using Painter = void (*)(HDC, const Grid&);
// In toolbar order: save, load, settings, about, help, exit.
constexpr Painter kPainters[] = {PaintSave, PaintLoad, PaintSettings, PaintAbout, PaintHelp, PaintExit};

// A memory DC over a top-down 32-bit DIB section filled with one colour.
class Canvas {
public:
    Canvas(int width, int height, std::uint32_t fill) : dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        bitmap_.Reset(CreateDIBSection(dc_.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        bits_ = static_cast<std::uint32_t*>(bits);
        if (bits_) std::fill_n(bits_, static_cast<std::size_t>(width) * height, fill);
        old_ = SelectObject(dc_.Get(), bitmap_.Get());
    }
    // A bitmap still selected into a device context cannot be deleted.
    ~Canvas() { SelectObject(dc_.Get(), old_); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Dc() const { return dc_.Get(); }
    std::uint32_t* Bits() const { return bits_; }
    // Hands the bitmap over; the canvas no longer deletes it.
    OwnedBitmap Release() {
        SelectObject(dc_.Get(), old_);
        return std::move(bitmap_);
    }

private:
    OwnedMemoryDc dc_;
    OwnedBitmap bitmap_;
    HGDIOBJ old_ = nullptr;
    std::uint32_t* bits_ = nullptr;
};

int Channel(std::uint32_t pixel, int shift) { return static_cast<int>((pixel >> shift) & 0xFF); }

// Average of one channel over a pixel's samples.
int Average(const std::uint32_t* bits, int bigSize, int x, int y, int shift) {
    int sum = 0;
    for (int sy = 0; sy < kSupersample; ++sy) {
        for (int sx = 0; sx < kSupersample; ++sx)
            sum += Channel(bits[(y * kSupersample + sy) * bigSize + x * kSupersample + sx], shift);
    }
    return sum / (kSupersample * kSupersample);
}

// Drawn once on white and once on black, a sample's coverage is how far the
// two disagree; the colour is what the black drawing shows, undone by coverage.
Pixels Render(Painter paint, int size) {
    int big = size * kSupersample;
    Canvas onWhite(big, big, 0xFFFFFF);
    Canvas onBlack(big, big, 0x000000);
    paint(onWhite.Dc(), Grid{big});
    paint(onBlack.Dc(), Grid{big});
    GdiFlush();
    Pixels pixels(static_cast<std::size_t>(size) * size, 0);
    if (!onWhite.Bits() || !onBlack.Bits()) return pixels;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            std::uint32_t pixel = 0;
            int alpha = 0;
            for (int shift : {16, 8, 0})
                alpha += 255 - (Average(onWhite.Bits(), big, x, y, shift) - Average(onBlack.Bits(), big, x, y, shift));
            alpha = std::clamp(alpha / 3, 0, 255);
            if (alpha > 0) {
                pixel = static_cast<std::uint32_t>(alpha) << 24;
                for (int shift : {16, 8, 0}) {
                    int colour = std::min(255, Average(onBlack.Bits(), big, x, y, shift) * 255 / alpha);
                    pixel |= static_cast<std::uint32_t>(colour) << shift;
                }
            }
            pixels[static_cast<std::size_t>(y) * size + x] = pixel;
        }
    }
    return pixels;
}

// Disabled pictures are light grey and faint; hot ones a shade brighter.
std::uint32_t ApplyLook(std::uint32_t pixel, PictureLook look) {
    int alpha = Channel(pixel, 24);
    int red = Channel(pixel, 16), green = Channel(pixel, 8), blue = Channel(pixel, 0);
    if (look == PictureLook::Disabled) {
        int grey = (red * 30 + green * 59 + blue * 11) / 100 / 2 + 110;
        red = green = blue = std::min(grey, 255);
        alpha = alpha * 55 / 100;
    } else if (look == PictureLook::Hot) {
        red += (255 - red) / 5, green += (255 - green) / 5, blue += (255 - blue) / 5;
    }
    return static_cast<std::uint32_t>(alpha) << 24 | static_cast<std::uint32_t>(red) << 16 |
           static_cast<std::uint32_t>(green) << 8 | static_cast<std::uint32_t>(blue);
}

}  // namespace

OwnedBitmap DrawToolbarStrip(int size, PictureLook look) {
    int count = static_cast<int>(std::size(kPainters));
    Canvas strip(size * count, size, 0);
    std::uint32_t* bits = strip.Bits();
    if (!bits) return {};
    for (int index = 0; index < count; ++index) {
        Pixels picture = Render(kPainters[index], size);
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x)
                bits[y * size * count + index * size + x] = ApplyLook(picture[y * size + x], look);
        }
    }
    GdiFlush();
    return strip.Release();
}
