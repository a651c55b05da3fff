#include "tests/apps/addin-dll/Pictures.h"

#include "tests/adapters/win32/User.h"

#include <cstdlib>
#include <fstream>
#include <vector>

namespace formwizard::tests::host {

void TakePicture(const std::string& name) {
  const char* folder = std::getenv("FORMWIZARD_PICTURES");
  if (!folder) return;
  RECT place{};
  ::GetWindowRect(ActiveWindow(), &place);
  BITMAPINFO description{};
  description.bmiHeader = {
      sizeof(BITMAPINFOHEADER), place.right - place.left, place.bottom - place.top, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
  const BITMAPINFOHEADER& header = description.bmiHeader;
  const HDC screen = ::GetDC(nullptr);
  const HDC memory = ::CreateCompatibleDC(screen);
  void* pixels = nullptr;
  const HBITMAP bitmap = ::CreateDIBSection(screen, &description, DIB_RGB_COLORS, &pixels, nullptr, 0);
  const HGDIOBJ before = ::SelectObject(memory, bitmap);
  ::BitBlt(memory, 0, 0, header.biWidth, header.biHeight, screen, place.left, place.top, SRCCOPY);
  ::GdiFlush();
  const auto size = static_cast<DWORD>((header.biWidth * 3 + 3) / 4 * 4 * header.biHeight);
  BITMAPFILEHEADER file{0x4D42, 0, 0, 0, sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER)};
  file.bfSize = file.bfOffBits + size;
  std::ofstream out(std::string(folder) + "\\" + name + ".bmp", std::ios::binary);
  out.write(reinterpret_cast<const char*>(&file), sizeof(file));
  out.write(reinterpret_cast<const char*>(&header), sizeof(header));
  out.write(static_cast<const char*>(pixels), size);
  ::SelectObject(memory, before);
  ::DeleteObject(bitmap);
  ::DeleteDC(memory);
  ::ReleaseDC(nullptr, screen);
}

}  // namespace formwizard::tests::host
