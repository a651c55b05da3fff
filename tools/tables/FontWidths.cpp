// Prints the advance widths of the dialogs' font, a line each: CODE-POINT PIXELS, in hexadecimal and decimal, ordered.
// For Windows; tools/make-tables runs it.
#include <windows.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

// Western first: where two sets have a character, that one's width counts. Windows loads the font files of its own code
// page alone, so the others are named.
struct CharacterSet {
  BYTE Set;
  const char* File;
};
constexpr CharacterSet Sets[] = {
    {ANSI_CHARSET, "sserife.fon"},   {EASTEUROPE_CHARSET, "sserifee.fon"}, {RUSSIAN_CHARSET, "sserifer.fon"},
    {GREEK_CHARSET, "sserifeg.fon"}, {TURKISH_CHARSET, "sserifet.fon"},    {BALTIC_CHARSET, "ssee1257.fon"},
};

bool Select(HDC screen, const CharacterSet& set) {
  AddFontResourceA((std::string("C:\\windows\\Fonts\\") + set.File).c_str());
  LOGFONTA font{};
  font.lfHeight = -11;  // 8 points at 96 dots per inch
  font.lfCharSet = set.Set;
  lstrcpyA(font.lfFaceName, "MS Sans Serif");
  SelectObject(screen, CreateFontIndirectA(&font));
  char face[LF_FACESIZE] = "";
  GetTextFaceA(screen, LF_FACESIZE, face);
  return GetTextCharset(screen) == set.Set && lstrcmpA(face, font.lfFaceName) == 0;
}

}  // namespace

int main() {
  const HDC screen = CreateCompatibleDC(nullptr);
  std::map<wchar_t, long> widths;
  for (const CharacterSet& set : Sets) {
    if (!Select(screen, set)) {
      std::fprintf(stderr, "MS Sans Serif is not installed for the character set %u (%s)\n", set.Set, set.File);
      return 1;
    }
    for (wchar_t character = 0x20; character < 0xE000; ++character) {
      WORD glyph = 0xFFFF;
      SIZE size{};
      GetGlyphIndicesW(screen, &character, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
      if (glyph == 0xFFFF || (character > 0x7F && character < 0xA0)) continue;  // controls are not drawn
      if (GetTextExtentPoint32W(screen, &character, 1, &size)) widths.try_emplace(character, size.cx);
    }
  }
  for (const auto& [character, width] : widths) std::printf("%04X %ld\n", character, width);
}
