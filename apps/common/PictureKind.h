// What a form can be drawn into.
#pragma once

#include <string>

namespace formwizard::apps::common {

enum class PictureKind { Png, Svg };

// By the ending of the picture's name, in any case of its letters; UsageError for any other.
PictureKind KindOfPicture(const std::string& picture);

}  // namespace formwizard::apps::common
