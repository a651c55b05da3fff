#include "adapters/win32/Screen.h"

#include "adapters/win32/Text.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace formwizard::adapters::win32 {
namespace {

constexpr int TwipsAnInch = 1440;
constexpr double PointsAnInch = 72;

// A bitmap that is an eighth off still looks like the others.
struct SoughtSize {
  LONG Height;
  bool IsThere;
};

int CALLBACK CompareSize(const LOGFONTW*, const TEXTMETRICW* metrics, DWORD, LPARAM data) {
  auto& sought = *reinterpret_cast<SoughtSize*>(data);
  const LONG height = metrics->tmHeight - metrics->tmInternalLeading;
  sought.IsThere = std::abs(height - sought.Height) * 8 <= sought.Height;
  return !sought.IsThere;
}

// Bitmaps come in some sizes only, and look bad when the system stretches them.
bool HasSize(HDC context, LONG height) {
  TEXTMETRICW metrics{};
  GetTextMetricsW(context, &metrics);
  if ((metrics.tmPitchAndFamily & (TMPF_TRUETYPE | TMPF_VECTOR)) != 0) return true;
  LOGFONTW family{};
  family.lfCharSet = metrics.tmCharSet;
  GetTextFaceW(context, LF_FACESIZE, std::data(family.lfFaceName));
  SoughtSize sought{height, false};
  EnumFontFamiliesExW(context, &family, CompareSize, reinterpret_cast<LPARAM>(&sought), 0);
  return sought.IsThere;
}

int HeightOf(double points, int dotsPerInch) {
  return static_cast<int>(std::lround(points * dotsPerInch / PointsAnInch));
}

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
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
  return Owned<HFONT>(CreateFontW(-HeightOf(points, dotsPerInch), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                  static_cast<DWORD>(charset), OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                  DEFAULT_PITCH | FF_DONTCARE, Wide(name).c_str()));
}

Fonts::MadeFont& Fonts::Made(double points, const std::string& name, int charset) {
  MadeFont& font = made_[{points, name, charset}];
  if (font.Handle) return font;
  font.Handle = MakeFont(points, DotsPerInch(), name, charset);
  font.HasSize = HasSize(MemoryContext(font.Handle.get()), HeightOf(points, DotsPerInch()));
  return font;
}

bool Fonts::Draws(const ui::Font& font, std::string_view text) {
  MadeFont& wanted = Made(font.Size, font.Name, font.Charset);
  if (IsAscii(text)) return wanted.HasSize;  // which every font draws
  if (!wanted.Drawn) {
    wanted.Drawn = std::make_unique<Characters>(CharactersOf(MemoryContext(wanted.Handle.get())));
  }
  return wanted.HasSize && HasAll(*wanted.Drawn, Wide(text));
}

HFONT Fonts::FontFor(const ui::Font& font, std::string_view text) {
  if (Draws(font, text)) return Made(font.Size, font.Name, font.Charset).Handle.get();
  return Made(font.Size, "Microsoft Sans Serif", DEFAULT_CHARSET).Handle.get();
}

}  // namespace formwizard::adapters::win32
