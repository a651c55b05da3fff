// The menu bar of the played environment, and the clicks on its commands.
#pragma once

#include "tests/support/FakeDispatch.h"

#include <cstddef>

namespace formwizard::tests::host {

class ClickSource;

struct Command {
  std::string Caption, OnAction;
  bool BeginGroup = false;
  std::string Face;                   // the bitmap that was on the clipboard when it was pasted
  std::vector<ClickSource*> Sources;  // of those who want to hear of clicks
  bool IsDeleted = false;
  bool IsHeardByAll = false;  // nobody else can listen
};
using Menu = std::vector<std::shared_ptr<Command>>;

class HostMenus {
 public:
  // The menu bar has as many menus as the real one; the Add-Ins menu stands at this place in version 6.
  static constexpr std::size_t AddIns = 11;
  // There, and where it stands in other versions, with two commands each.
  HostMenus();

  Menu& At(std::size_t index) { return *menus_.at(index - 1); }
  FakePtr CommandBars();
  static FakePtr Events();

 private:
  std::vector<std::shared_ptr<Menu>> menus_;
};

// What the environment tells those who listen, in their order. True when somebody was listening and changed no answer.
bool Click(const std::shared_ptr<Command>& command);
// The answers of a click, as the environment begins with them.
struct Answers {
  VARIANT_BOOL Handled = VARIANT_FALSE, CancelDefault = VARIANT_TRUE;
};
// Tells one listener of one event, by default the click.
HRESULT Fire(IDispatch& listener, const std::shared_ptr<Command>& command, Answers& answers, EXCEPINFO* info = nullptr,
             DISPID event = 1);
// Who listens to the command; null when nobody does.
com::ComPtr<IDispatch> ListenerOf(const std::shared_ptr<Command>& command);

}  // namespace formwizard::tests::host
