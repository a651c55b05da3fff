// The server's object factory, created by its registered name.
#pragma once

#include "wizard/factory/Factory.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::adapters::com {

inline constexpr const char* ServersProgId = "OstrelObject.Factory";

// COM must be initialized on the thread.
class ComFactoryCreator : public wizard::factory::FactoryCreator {
 public:
  explicit ComFactoryCreator(std::string progId = ServersProgId) : progId_(std::move(progId)) {}

  std::unique_ptr<wizard::factory::ObjectFactory> Create() override;

 private:
  std::string progId_;
};

}  // namespace formwizard::adapters::com
