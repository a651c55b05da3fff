// What the objects that come from one root have in common: they can all be let go at once.
#pragma once

#include "adapters/com/ComPtr.h"
#include "adapters/com/MemberIds.h"

#include <oaidl.h>

#include <memory>
#include <stdexcept>
#include <unordered_set>

namespace formwizard::adapters::com {

// The other side has ended the connection: nothing of it may be called any more. It is no RuntimeError on purpose: no
// routine reports it and goes on.
class Disconnected : public std::runtime_error {
 public:
  Disconnected() : runtime_error("The add-in has been disconnected.") {}
};

class Reference;

class Connection {
 public:
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() = default;

  // Releases all references. From now on using one of the objects raises Disconnected, and so does a call that is
  // under way, when it returns.
  void End();
  void Require() const {
    if (isOver_) throw Disconnected();
  }

  MemberIdsByType Types;

 private:
  friend class Reference;
  std::unordered_set<Reference*> references_;
  bool isOver_ = false;
};

// The reference to one object; copies of an Object share it.
class Reference {
 public:
  Reference(ComPtr<IDispatch> object, std::shared_ptr<Connection> connection);
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;
  ~Reference();

  // One of the caller's own, because a call may be the end of this one.
  ComPtr<IDispatch> Get() const;
  const std::shared_ptr<Connection>& From() const { return connection_; }

 private:
  friend class Connection;
  ComPtr<IDispatch> object_;
  std::shared_ptr<Connection> connection_;
};

}  // namespace formwizard::adapters::com
