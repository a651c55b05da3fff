#include "adapters/com/Connection.h"

#include <utility>

namespace formwizard::adapters::com {

void Connection::End() {
  isOver_ = true;
  while (!references_.empty()) {
    Reference* const next = *references_.begin();
    references_.erase(references_.begin());
    const ComPtr<IDispatch> released = std::move(next->object_);  // which may call back
  }
}

Reference::Reference(ComPtr<IDispatch> object, std::shared_ptr<Connection> connection)
    : object_(std::move(object)), connection_(std::move(connection)) {
  connection_->Require();
  connection_->references_.insert(this);
}

Reference::~Reference() { connection_->references_.erase(this); }

ComPtr<IDispatch> Reference::Get() const {
  connection_->Require();
  return object_;
}

}  // namespace formwizard::adapters::com
