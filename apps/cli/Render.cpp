#include "apps/cli/Commands.h"
#include "apps/cli/DesktopProgram.h"
#include "apps/common/Endings.h"
#include "apps/common/PictureKind.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace formwizard::apps::cli {
namespace {

struct RenderOptions {
  std::string Form, Picture;
  int CodePage = 1252;
};

int Render(const RenderOptions& options) {
  // What is wrong with the names is said here, also where there is no desktop program.
  if (options.Form == "-") {
    throw common::UsageError("-: a form is read from a file, because its pictures stand in a file beside it");
  }
  common::KindOfPicture(options.Picture);
  BecomeDesktopProgram({"--render=" + options.Form, "--code-page=" + std::to_string(options.CodePage)}, options.Picture,
                       "which draws forms");
}

}  // namespace

void AddRender(CLI::App& command, Task& task) {
  const auto options = std::make_shared<RenderOptions>();
  AddFile(command, "form", options->Form, "the form (.frm); its .frx stands beside it")->required();
  AddFile(command, "picture", options->Picture, "the picture to write, .png or .svg")->required();
  AddCodePage(command, options->CodePage, "the Windows code page of the form");
  command.callback([&task, options] { task = {[options] { return Render(*options); }, options->Form}; });
}

}  // namespace formwizard::apps::cli
