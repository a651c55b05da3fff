#include "tests/adapters/win32/Picture.h"

#include "adapters/win32/Handles.h"
#include "tests/adapters/win32/User.h"

#include <fstream>

namespace formwizard::tests {

void TakePicture(const std::string& name) {
  const char* folder = std::getenv("FORMWIZARD_PICTURES");
  if (!folder) return;
  RECT place{};
  GetWindowRect(ActiveWindow(), &place);
  BITMAPINFO description{};
  BITMAPINFOHEADER& header = description.bmiHeader;
  header = {sizeof(header), place.right - place.left, place.bottom - place.top, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
  void* pixels = nullptr;
  const adapters::win32::Owned<HBITMAP> bitmap(
      CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &pixels, nullptr, 0));
  const HDC screen = GetDC(nullptr);
  BitBlt(adapters::win32::MemoryContext(bitmap.get()), 0, 0, header.biWidth, header.biHeight, screen, place.left,
         place.top, SRCCOPY);
  ReleaseDC(nullptr, screen);
  const auto size = static_cast<DWORD>((header.biWidth * 3 + 3) / 4 * 4 * header.biHeight);
  constexpr DWORD start = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
  const BITMAPFILEHEADER file{0x4D42, start + size, 0, 0, start};
  std::ofstream out(std::string(folder) + "\\" + name + ".bmp", std::ios::binary);
  out.write(reinterpret_cast<const char*>(&file), sizeof(file));
  out.write(reinterpret_cast<const char*>(&header), sizeof(header));
  out.write(static_cast<const char*>(pixels), size);
}

}  // namespace formwizard::tests
