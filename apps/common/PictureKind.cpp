#include "apps/common/PictureKind.h"

#include "apps/common/Endings.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <string_view>

namespace formwizard::apps::common {

PictureKind KindOfPicture(const std::string& picture) {
  constexpr std::size_t length = 4;
  const std::string_view ending = std::string_view(picture).substr(picture.size() - std::min(picture.size(), length));
  if (runtime::EqualIgnoringCase(ending, ".png")) return PictureKind::Png;
  if (runtime::EqualIgnoringCase(ending, ".svg")) return PictureKind::Svg;
  throw UsageError(picture + ": the name of a picture ends in .png or .svg");
}

}  // namespace formwizard::apps::common
