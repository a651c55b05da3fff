// Plays the server for an add-in: its registered factory, late-bound, over a class dictionary.
#pragma once

#include "tests/support/FakeDispatch.h"
#include "wizard/factory/Factory.h"

namespace formwizard::tests::host {

// "OstrelObject.Factory" can be created in this process as long as it lives. `PlannedFailures` of "Server.Create" make
// that fail.
class HostServer : Pinned {
 public:
  explicit HostServer(std::unique_ptr<wizard::factory::FactoryCreator> dictionary);
  ~HostServer();

 private:
  std::unique_ptr<wizard::factory::FactoryCreator> dictionary_;
  DWORD registration_ = 0;
};

}  // namespace formwizard::tests::host
