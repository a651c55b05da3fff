// Plays the environment for an add-in: its object model, late-bound, over a project in memory.
#pragma once

#include "tests/apps/addin-dll/HostMenus.h"
#include "tests/support/MemoryProject.h"

namespace formwizard::tests::host {

class HostEnvironment : Pinned {
 public:
  // The window owns what the add-in shows; both must outlive this object.
  explicit HostEnvironment(MemoryProject& project, HWND mainWindow = nullptr)
      : project_(project), mainWindow_(mainWindow) {}

  std::string Version = "6.00";
  HostMenus Menus;

  // What the add-in is connected to. It and what it hands out must not outlive this object.
  FakePtr Root();

 private:
  MemoryProject& project_;
  HWND mainWindow_;
};

}  // namespace formwizard::tests::host
