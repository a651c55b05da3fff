#include "adapters/win32/Pictures.h"

#include "adapters/win32/Screen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <vector>

namespace formwizard::adapters::win32 {
namespace {

using resources::Shape;

constexpr int Samples = 4;             // along each side of a pixel
constexpr int TreePictureTwips = 240;  // 16 pixels at the density of the design

// A bitmap whose pixels, 0xRRGGBB, can be reached.
struct PixelBitmap {
  explicit PixelBitmap(SIZE size) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    Handle.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!Handle) throw std::runtime_error("A picture cannot be drawn.");
    Pixels = {static_cast<std::uint32_t*>(bits), static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy)};
  }
  Owned<HBITMAP> Handle;
  std::span<std::uint32_t> Pixels;  // by rows, from the top
};

COLORREF ColorOf(std::uint32_t color) { return RGB((color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF); }

class Canvas {
 public:
  Canvas(HDC context, double scaleX, double scaleY) : context_(context), scaleX_(scaleX), scaleY_(scaleY) {}

  void Draw(const Shape& shape) {
    const bool hasOutline = shape.Outline != resources::NoOutline;
    const int width = std::max(1, static_cast<int>(std::lround(scaleX_)));
    const Owned<HBRUSH> brush(CreateSolidBrush(ColorOf(shape.Fill)));
    const Owned<HPEN> pen(CreatePen(hasOutline ? PS_SOLID : PS_NULL, width, ColorOf(shape.Outline)));
    const HGDIOBJ previousBrush = SelectObject(context_, brush.get());
    const HGDIOBJ previousPen = SelectObject(context_, pen.get());
    std::vector<POINT> points;
    for (const resources::Point& point : shape.Points) points.push_back(At(point));
    if (shape.Form == Shape::Kind::Ellipse) {
      Ellipse(context_, points.front().x, points.front().y, points.back().x, points.back().y);
    } else {
      Polygon(context_, points.data(), static_cast<int>(points.size()));
    }
    SelectObject(context_, previousPen);
    SelectObject(context_, previousBrush);
  }

 private:
  POINT At(const resources::Point& point) const {
    return {std::lround(point.X * scaleX_), std::lround(point.Y * scaleY_)};
  }

  HDC context_;
  double scaleX_, scaleY_;
};

std::uint32_t AverageAt(const PixelBitmap& from, SIZE size, LONG x, LONG y) {
  std::array<std::uint32_t, 3> sums{};
  for (LONG row = y * Samples; row < (y + 1) * Samples; ++row) {
    for (LONG column = x * Samples; column < (x + 1) * Samples; ++column) {
      const std::uint32_t pixel = from.Pixels[static_cast<std::size_t>(row * size.cx * Samples + column)];
      for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += (pixel >> (8 * i)) & 0xFF;
    }
  }
  constexpr std::uint32_t count = Samples * Samples;
  return (sums[2] / count) << 16 | (sums[1] / count) << 8 | sums[0] / count;
}

}  // namespace

// Drawn larger, then made smaller: the system's own drawing has no smooth edges.
Owned<HBITMAP> Render(const resources::Picture& picture, SIZE size, COLORREF ground) {
  const PixelBitmap large(SIZE{size.cx * Samples, size.cy * Samples});
  {
    const MemoryContext context(large.Handle.get());
    const RECT all{0, 0, size.cx * Samples, size.cy * Samples};
    const Owned<HBRUSH> brush(CreateSolidBrush(ground));
    FillRect(context, &all, brush.get());
    Canvas canvas(context, static_cast<double>(all.right) / picture.Width,
                  static_cast<double>(all.bottom) / picture.Height);
    for (const Shape& shape : picture.Shapes) canvas.Draw(shape);
  }
  GdiFlush();
  PixelBitmap result(size);
  for (LONG y = 0; y < size.cy; ++y) {
    for (LONG x = 0; x < size.cx; ++x)
      result.Pixels[static_cast<std::size_t>(y * size.cx + x)] = AverageAt(large, size, x, y);
  }
  return std::move(result.Handle);
}

OwnedImageList TreePictures() {
  const int side = PixelsOf(TreePictureTwips);
  const SIZE size{side, side};
  const COLORREF ground = GetSysColor(COLOR_WINDOW);
  OwnedImageList list(ImageList_Create(side, side, ILC_COLOR24, 1, 1));
  ImageList_Add(list.get(), Render({16, 16, {}}, size, ground).get(), nullptr);
  for (int i = 1; const resources::Picture* picture = resources::TreePicture(i); ++i) {
    ImageList_Add(list.get(), Render(*picture, size, ground).get(), nullptr);
  }
  return list;
}

}  // namespace formwizard::adapters::win32
