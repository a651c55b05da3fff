// Draws the core's pictures as bitmaps of the size that is needed.
#pragma once

#include "adapters/win32/Handles.h"
#include "resources/Shapes.h"

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <type_traits>

namespace formwizard::adapters::win32 {

// Stretches the picture, with smooth edges, over a ground of one colour.
Owned<HBITMAP> Render(const resources::Picture& picture, SIZE size, COLORREF ground);

struct DestroyImageList {
  void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};
using OwnedImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, DestroyImageList>;

// The pictures of the trees' nodes by their index; an empty one has the index 0.
OwnedImageList TreePictures();

}  // namespace formwizard::adapters::win32
