#include "adapters/win32/Screen.h"

#include "adapters/win32/Text.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace formwizard::adapters::win32 {
namespace {

constexpr int TwipsAnInch = 1440;
constexpr double PointsAnInch = 72;
constexpr WORD MissingGlyph = 0xFFFF;

bool HasAll(HFONT font, const std::wstring& text) {
  if (text.empty()) return true;
  const MemoryContext context(font);
  std::vector<WORD> glyphs(text.size());
  GetGlyphIndicesW(context, text.data(), static_cast<int>(text.size()), glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
  return std::ranges::find(glyphs, MissingGlyph) == glyphs.end();
}

}  // namespace

int DotsPerInch() {
  const HDC screen = GetDC(nullptr);
  const int density = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return density;
}

int PixelsOf(int twips) {
  static const int density = DotsPerInch();
  return MulDiv(twips, density, TwipsAnInch);
}

Owned<HFONT> MakeFont(double points, int dotsPerInch, const std::string& name, int charset) {
  const int height = static_cast<int>(std::lround(points * dotsPerInch / PointsAnInch));
  return Owned<HFONT>(CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, static_cast<DWORD>(charset),
                                  OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE,
                                  Wide(name).c_str()));
}

HFONT Fonts::Made(double points, const std::string& name, int charset) {
  Owned<HFONT>& font = made_[{points, name, charset}];
  if (!font) font = MakeFont(points, DotsPerInch(), name, charset);
  return font.get();
}

HFONT Fonts::FontFor(const ui::Font& font, std::string_view text) {
  const HFONT wanted = Made(font.Size, font.Name, font.Charset);
  return HasAll(wanted, Wide(text)) ? wanted : Made(font.Size, "Microsoft Sans Serif", DEFAULT_CHARSET);
}

}  // namespace formwizard::adapters::win32
