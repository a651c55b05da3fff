// Somebody at keyboard and mouse: another thread, whose input goes the way of real input.
#pragma once

#include "ui/Control.h"

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <string_view>

namespace formwizard::tests {

// Whether the system has the font that the dialogs are designed for. Without it texts have other widths.
bool HasDialogFont();

// Runs `show`, which opens a window and returns when it is closed, while somebody works with that window. Who fails, by
// an exception, or leaves a window open finds them closed, and the test failed.
void UseWindows(const std::function<void()>& show, const std::function<void()>& work);

// All that follows is for `work`. Each action returns when the windows have nothing more to do.
void Press(WORD key, WORD modifier = 0);
void Type(std::wstring_view text);
void Click(HWND window, POINT at);
void DoubleClick(HWND window, POINT at);
inline void Click(HWND window) { Click(window, {8, 8}); }

// The windows that are shown, by title: dialogs and message boxes. An error when there is none before long.
HWND Await(std::wstring_view title);
// The title of the window that has the user's input.
std::wstring ActiveTitle();
HWND Focus();
// The window that shows a control of an open dialog.
HWND WindowOf(const ui::Control& control);

// The same by the control's place in the tab order, from 1; null without one.
HWND ChildWithId(HWND window, int id);

// What is drawn in trees and lists.
HTREEITEM ItemOf(HWND tree, std::wstring_view text, HTREEITEM below = TVI_ROOT);
std::wstring SelectedText(HWND tree);
POINT PlaceOf(HWND tree, HTREEITEM item);
POINT PlaceOfRow(HWND list, int row);

std::wstring CaptionOf(HWND window);
// Top-level windows of this program's first thread, visible or not.
int CountWindows();

}  // namespace formwizard::tests
