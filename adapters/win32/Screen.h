// Lengths and fonts at the density of the screen.
#pragma once

#include "adapters/win32/FontCharacters.h"
#include "adapters/win32/Handles.h"
#include "ui/Control.h"

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <tuple>

namespace formwizard::adapters::win32 {

int DotsPerInch();
int PixelsOf(int twips);

// `points` at a density.
Owned<HFONT> MakeFont(double points, int dotsPerInch, const std::string& name, int charset);

// The fonts of a dialog's controls, each made once.
class Fonts {
 public:
  // Where the font lacks a character of `text`, or is a bitmap that has not the wanted size, a scalable font of the
  // same look is taken for it.
  HFONT FontFor(const ui::Font& font, std::string_view text);
  // Whether the font itself will do.
  bool Draws(const ui::Font& font, std::string_view text);

 private:
  struct MadeFont {
    Owned<HFONT> Handle;
    bool HasSize = true;
    std::unique_ptr<const Characters> Drawn;  // as soon as somebody asks
  };
  MadeFont& Made(double points, const std::string& name, int charset);

  std::map<std::tuple<double, std::string, int>, MadeFont> made_;
};

}  // namespace formwizard::adapters::win32
