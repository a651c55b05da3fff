// The window around a form in the classic look of the system. All measures are twips.
#pragma once

#include <array>
#include <cstddef>

namespace formwizard::ui {

inline constexpr int TwipsPerPixel = 15;  // at 96 dots per inch, for which dialogs and forms are designed

struct WindowFrame {
  int Border, Caption;  // on every side; above the client area

  // From the outer corner to the client area's.
  constexpr int Left() const { return Border; }
  constexpr int Top() const { return Border + Caption; }
  // What the frame adds to the size of the client area.
  constexpr int Width() const { return 2 * Border; }
  constexpr int Height() const { return 2 * Border + Caption; }
};

// By border style: none, fixed single, sizable, fixed dialog, fixed tool window, sizable tool window.
inline constexpr std::array WindowFrames{WindowFrame{0, 0},    WindowFrame{45, 285}, WindowFrame{60, 285},
                                         WindowFrame{45, 285}, WindowFrame{45, 240}, WindowFrame{60, 240}};
inline constexpr std::size_t FixedDialogFrame = 3;

inline constexpr int MenuBarHeight = 285;

}  // namespace formwizard::ui
