// Text widths as the system measures them.
#pragma once

#include "adapters/win32/Handles.h"
#include "ui/TextMeasure.h"

#include <windows.h>

namespace formwizard::adapters::win32 {

// In the dialogs' font at the density of the design, whatever the screen has.
class Win32TextMeasure : public ui::TextMeasure {
 public:
  Win32TextMeasure();
  double WidthOf(std::string_view caption) const override;

 private:
  Owned<HFONT> font_;
  MemoryContext context_;
};

}  // namespace formwizard::adapters::win32
