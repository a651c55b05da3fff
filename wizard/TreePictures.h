// The pictures of the trees' nodes, by index into the dialog's image list.
#pragma once

#include "runtime/Integer.h"

namespace formwizard::wizard::picture {

inline constexpr runtime::Int16 Class(1);
inline constexpr runtime::Int16 Property(2);          // a simple property that is not selected
inline constexpr runtime::Int16 SelectedProperty(3);  // and one that is
inline constexpr runtime::Int16 NotConnected(4);      // "NOTCONNECTED"
inline constexpr runtime::Int16 Connected(5);
inline constexpr runtime::Int16 Object(6);  // embedded object or reference: not selectable, expandable
inline constexpr runtime::Int16 OpenPackage(7);
inline constexpr runtime::Int16 Package(8);

}  // namespace formwizard::wizard::picture
