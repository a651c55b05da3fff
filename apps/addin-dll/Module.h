// This library as the system sees it: who it is, where it lies, and whether it can be unloaded.
#pragma once

#include <windows.h>

#include <string>

namespace formwizard::apps::addin {

HINSTANCE ThisModule();

// The path of the library, and its folder with the trailing backslash.
std::wstring ModulePath();
std::wstring ModuleFolder();

// Counted: the library is needed until each hold has been let go, and as long as an object of it lives.
void HoldModule();
void LetGoModule();
bool IsModuleNeeded();

// Holds the library for as long as it lives.
class ModuleHold {
 public:
  ModuleHold() { HoldModule(); }
  ~ModuleHold() { LetGoModule(); }
  ModuleHold(const ModuleHold&) = delete;
  ModuleHold& operator=(const ModuleHold&) = delete;
};

}  // namespace formwizard::apps::addin
