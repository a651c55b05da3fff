#include "adapters/vb6files/FormText.h"

namespace formwizard::adapters::vb6files {

void FormText::GatherBlock() {
  text_.append(block_.data(), used_);
  used_ = 0;
}

FormText& FormText::AppendBehindBlock(std::string_view piece) {
  GatherBlock();
  text_ += piece;
  return *this;
}

}  // namespace formwizard::adapters::vb6files
