#include "adapters/textmeasure/FontWidths.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace formwizard::adapters::textmeasure {
namespace {

// U+0020 to U+00FF.
constexpr std::array<std::uint8_t, 224> LatinWidths{
    3,  3, 5, 7, 6, 8, 6,  2, 3, 3, 4, 6, 3, 3, 3, 5, 6, 6, 6, 6, 6, 6, 6, 6,  6, 6, 3, 3, 6, 6, 6, 6,
    11, 7, 7, 7, 8, 7, 6,  8, 8, 3, 5, 7, 6, 9, 8, 8, 7, 8, 8, 7, 7, 8, 7, 11, 7, 7, 7, 3, 5, 3, 6, 6,
    3,  6, 6, 6, 6, 6, 3,  6, 6, 2, 2, 6, 2, 8, 6, 6, 6, 6, 3, 5, 3, 6, 6, 8,  5, 5, 5, 4, 2, 4, 7, 3,
    0,  0, 0, 0, 0, 0, 0,  0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  0, 0, 0, 0, 0, 0, 0, 0,
    3,  3, 6, 6, 6, 6, 2,  6, 3, 9, 4, 6, 6, 3, 8, 6, 4, 6, 3, 3, 3, 6, 6, 3,  3, 3, 4, 6, 8, 8, 8, 6,
    7,  7, 7, 7, 7, 7, 10, 7, 7, 7, 7, 7, 3, 3, 3, 3, 8, 8, 8, 8, 8, 8, 8, 6,  8, 8, 8, 8, 8, 7, 7, 6,
    6,  6, 6, 6, 6, 6, 10, 6, 6, 6, 6, 6, 2, 4, 4, 4, 6, 6, 6, 6, 6, 6, 6, 6,  6, 6, 6, 6, 6, 5, 6, 5,
};

struct Width {
  char32_t Character;
  std::uint8_t Pixels;
};

// The other characters that the font has in any of its character sets, ordered.
constexpr Width OtherWidths[] = {
    Width{0x0100, 7},  Width{0x0101, 6},  Width{0x0102, 7}, Width{0x0103, 6},  Width{0x0104, 8},  Width{0x0105, 6},
    Width{0x0106, 7},  Width{0x0107, 6},  Width{0x010C, 7}, Width{0x010D, 6},  Width{0x010E, 8},  Width{0x010F, 8},
    Width{0x0110, 8},  Width{0x0111, 7},  Width{0x0112, 7}, Width{0x0113, 6},  Width{0x0116, 7},  Width{0x0117, 6},
    Width{0x0118, 7},  Width{0x0119, 6},  Width{0x011A, 7}, Width{0x011B, 6},  Width{0x011E, 8},  Width{0x011F, 6},
    Width{0x0122, 8},  Width{0x0123, 6},  Width{0x012A, 3}, Width{0x012B, 3},  Width{0x012E, 3},  Width{0x012F, 2},
    Width{0x0130, 3},  Width{0x0131, 2},  Width{0x0136, 7}, Width{0x0137, 6},  Width{0x0139, 6},  Width{0x013A, 3},
    Width{0x013B, 6},  Width{0x013C, 3},  Width{0x013D, 6}, Width{0x013E, 4},  Width{0x0141, 7},  Width{0x0142, 4},
    Width{0x0143, 8},  Width{0x0144, 6},  Width{0x0145, 8}, Width{0x0146, 6},  Width{0x0147, 8},  Width{0x0148, 6},
    Width{0x014C, 8},  Width{0x014D, 6},  Width{0x0150, 8}, Width{0x0151, 6},  Width{0x0152, 10}, Width{0x0153, 10},
    Width{0x0154, 8},  Width{0x0155, 4},  Width{0x0156, 8}, Width{0x0157, 3},  Width{0x0158, 8},  Width{0x0159, 4},
    Width{0x015A, 7},  Width{0x015B, 5},  Width{0x015E, 7}, Width{0x015F, 5},  Width{0x0160, 7},  Width{0x0161, 5},
    Width{0x0162, 7},  Width{0x0163, 3},  Width{0x0164, 7}, Width{0x0165, 4},  Width{0x016A, 8},  Width{0x016B, 6},
    Width{0x016E, 8},  Width{0x016F, 6},  Width{0x0170, 8}, Width{0x0171, 6},  Width{0x0172, 8},  Width{0x0173, 6},
    Width{0x0178, 7},  Width{0x0179, 7},  Width{0x017A, 5}, Width{0x017B, 7},  Width{0x017C, 5},  Width{0x017D, 7},
    Width{0x017E, 5},  Width{0x0192, 3},  Width{0x02C6, 3}, Width{0x02C7, 3},  Width{0x02D8, 5},  Width{0x02D9, 5},
    Width{0x02DB, 3},  Width{0x02DC, 3},  Width{0x02DD, 5}, Width{0x0384, 3},  Width{0x0385, 3},  Width{0x0386, 7},
    Width{0x0388, 7},  Width{0x0389, 8},  Width{0x038A, 4}, Width{0x038C, 8},  Width{0x038E, 7},  Width{0x038F, 8},
    Width{0x0390, 3},  Width{0x0391, 7},  Width{0x0392, 7}, Width{0x0393, 6},  Width{0x0394, 7},  Width{0x0395, 7},
    Width{0x0396, 7},  Width{0x0397, 8},  Width{0x0398, 8}, Width{0x0399, 3},  Width{0x039A, 7},  Width{0x039B, 7},
    Width{0x039C, 9},  Width{0x039D, 8},  Width{0x039E, 8}, Width{0x039F, 8},  Width{0x03A0, 7},  Width{0x03A1, 7},
    Width{0x03A3, 7},  Width{0x03A4, 7},  Width{0x03A5, 7}, Width{0x03A6, 8},  Width{0x03A7, 7},  Width{0x03A8, 6},
    Width{0x03A9, 8},  Width{0x03AA, 3},  Width{0x03AB, 7}, Width{0x03AC, 6},  Width{0x03AD, 6},  Width{0x03AE, 6},
    Width{0x03AF, 3},  Width{0x03B0, 6},  Width{0x03B1, 6}, Width{0x03B2, 6},  Width{0x03B3, 6},  Width{0x03B4, 6},
    Width{0x03B5, 6},  Width{0x03B6, 6},  Width{0x03B7, 6}, Width{0x03B8, 6},  Width{0x03B9, 3},  Width{0x03BA, 5},
    Width{0x03BB, 6},  Width{0x03BC, 6},  Width{0x03BD, 6}, Width{0x03BE, 6},  Width{0x03BF, 6},  Width{0x03C0, 6},
    Width{0x03C1, 6},  Width{0x03C2, 6},  Width{0x03C3, 7}, Width{0x03C4, 5},  Width{0x03C5, 6},  Width{0x03C6, 6},
    Width{0x03C7, 5},  Width{0x03C8, 6},  Width{0x03C9, 6}, Width{0x03CA, 3},  Width{0x03CB, 6},  Width{0x03CC, 6},
    Width{0x03CD, 6},  Width{0x03CE, 6},  Width{0x0401, 7}, Width{0x0402, 8},  Width{0x0403, 6},  Width{0x0404, 7},
    Width{0x0405, 7},  Width{0x0406, 3},  Width{0x0407, 3}, Width{0x0408, 5},  Width{0x0409, 11}, Width{0x040A, 11},
    Width{0x040B, 7},  Width{0x040C, 13}, Width{0x040E, 8}, Width{0x040F, 7},  Width{0x0410, 7},  Width{0x0411, 7},
    Width{0x0412, 7},  Width{0x0413, 6},  Width{0x0414, 9}, Width{0x0415, 7},  Width{0x0416, 11}, Width{0x0417, 7},
    Width{0x0418, 8},  Width{0x0419, 8},  Width{0x041A, 7}, Width{0x041B, 8},  Width{0x041C, 9},  Width{0x041D, 8},
    Width{0x041E, 8},  Width{0x041F, 8},  Width{0x0420, 7}, Width{0x0421, 7},  Width{0x0422, 7},  Width{0x0423, 8},
    Width{0x0424, 11}, Width{0x0425, 7},  Width{0x0426, 8}, Width{0x0427, 8},  Width{0x0428, 9},  Width{0x0429, 10},
    Width{0x042A, 8},  Width{0x042B, 10}, Width{0x042C, 7}, Width{0x042D, 7},  Width{0x042E, 9},  Width{0x042F, 8},
    Width{0x0430, 6},  Width{0x0431, 6},  Width{0x0432, 6}, Width{0x0433, 5},  Width{0x0434, 6},  Width{0x0435, 6},
    Width{0x0436, 8},  Width{0x0437, 6},  Width{0x0438, 6}, Width{0x0439, 6},  Width{0x043A, 6},  Width{0x043B, 6},
    Width{0x043C, 8},  Width{0x043D, 6},  Width{0x043E, 6}, Width{0x043F, 6},  Width{0x0440, 6},  Width{0x0441, 6},
    Width{0x0442, 5},  Width{0x0443, 5},  Width{0x0444, 8}, Width{0x0445, 5},  Width{0x0446, 6},  Width{0x0447, 5},
    Width{0x0448, 8},  Width{0x0449, 9},  Width{0x044A, 7}, Width{0x044B, 8},  Width{0x044C, 6},  Width{0x044D, 6},
    Width{0x044E, 8},  Width{0x044F, 6},  Width{0x0451, 6}, Width{0x0452, 13}, Width{0x0453, 5},  Width{0x0454, 6},
    Width{0x0455, 5},  Width{0x0456, 2},  Width{0x0457, 2}, Width{0x0458, 2},  Width{0x0459, 9},  Width{0x045A, 9},
    Width{0x045B, 6},  Width{0x045C, 6},  Width{0x045E, 5}, Width{0x045F, 7},  Width{0x0490, 6},  Width{0x0491, 5},
    Width{0x2013, 5},  Width{0x2014, 6},  Width{0x2015, 7}, Width{0x2018, 3},  Width{0x2019, 3},  Width{0x201A, 3},
    Width{0x201C, 4},  Width{0x201D, 4},  Width{0x201E, 5}, Width{0x2020, 5},  Width{0x2021, 5},  Width{0x2022, 6},
    Width{0x2026, 6},  Width{0x2030, 11}, Width{0x2039, 6}, Width{0x203A, 6},  Width{0x20AC, 6},  Width{0x2116, 11},
    Width{0x2122, 9},
};

constexpr int DefaultWidth = 6;     // of a character that the font lacks
constexpr int EastAsianWidth = 12;  // of a full-width character, drawn in another font

constexpr bool IsFullWidth(char32_t c) {
  return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
         (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFF01 && c <= 0xFF60) || (c >= 0x20000 && c <= 0x3FFFD);
}

}  // namespace

int PixelsOf(char32_t character) {
  if (character < 0x20) return DefaultWidth;
  if (character < 0x100) return LatinWidths[character - 0x20] != 0 ? LatinWidths[character - 0x20] : DefaultWidth;
  const auto found = std::ranges::lower_bound(OtherWidths, character, {}, &Width::Character);
  if (found != std::end(OtherWidths) && found->Character == character) return found->Pixels;
  return IsFullWidth(character) ? EastAsianWidth : DefaultWidth;
}

}  // namespace formwizard::adapters::textmeasure
