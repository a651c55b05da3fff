// A value of a control or a form that says so when it changes.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace formwizard::ui {

// What has properties, and is told when one of them has another value than before.
class Observed {
 public:
  virtual void Changed() = 0;

 protected:
  ~Observed() = default;
};

// Reads and is assigned like a plain member.
template <typename T>
class Property {
 public:
  explicit Property(Observed& owner, T value = T()) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;
  ~Property() = default;

  Property& operator=(T value) {
    if (value_ == value) return *this;
    value_ = std::move(value);
    owner_.Changed();
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.value_; }

  const T& Get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor)
  operator std::string_view() const             // NOLINT(google-explicit-constructor)
      requires std::same_as<T, std::string> {
    return value_;
  }
  T operator->() const requires std::is_pointer_v<T> { return value_; }
  friend bool operator==(const Property& property, const T& value) { return property.value_ == value; }

 private:
  Observed& owner_;
  T value_;
};

}  // namespace formwizard::ui
