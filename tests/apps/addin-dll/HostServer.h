// Plays the server for an add-in: its registered factory, late-bound, over a class dictionary.
#pragma once

#include "tests/support/FakeDispatch.h"
#include "wizard/factory/Factory.h"

#include <memory>

namespace formwizard::tests::host {

// "OstrelObject.Factory" can be created in this process as long as it lives. `PlannedFailures` of "Server.Create" make
// that fail.
class HostServer {
 public:
  explicit HostServer(std::unique_ptr<wizard::factory::FactoryCreator> dictionary);
  ~HostServer();
  HostServer(const HostServer&) = delete;
  HostServer& operator=(const HostServer&) = delete;

 private:
  std::unique_ptr<wizard::factory::FactoryCreator> dictionary_;
  DWORD registration_ = 0;
};

}  // namespace formwizard::tests::host
