// Somebody who uses the wizard by keyboard alone. Its windows are found by the names of the controls that they show.
#pragma once

#include "tests/adapters/win32/User.h"

#include <string>
#include <string_view>

namespace formwizard::tests::host {

// The shown window of a control in the dialog that has the user's input; an error when there is none.
HWND WindowNamed(std::string_view control);

void GoTo(std::string_view control);
void PressAccessKey(char key);
// In trees, by the text of a node, from the first one downwards.
void ChooseNode(std::string_view tree, std::wstring_view text);
void OpenNode(std::string_view tree, std::wstring_view text);
// Takes a property into the selection.
void SelectProperty(std::wstring_view text);
// The row of the list of fields, from 0.
void ChooseField(int row);
void TypeOver(std::string_view box, std::wstring_view text);
void ChooseInCombo(std::string_view combo, std::wstring_view text);

// Presses the button that makes the form, and waits until the wizard is closed.
void Finish();

// Whether a message box has the user's input.
bool IsAtMessage();
// Closes the message box that is there or comes before long, and gives "TITLE: TEXT".
std::string DismissMessage();

}  // namespace formwizard::tests::host
