// One form of a project: its designer, its code, and the text of its files.
#pragma once

#include "adapters/vb6files/CodePage.h"
#include "adapters/vb6files/ControlLibraries.h"
#include "generator/ide/Ide.h"

#include <memory>
#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

// The bytes of a form's files; Frx is empty when the form needs none.
struct FormFiles {
  std::string Frm;
  std::string Frx;
};

// Behaves as the environment's form designer and code module do. Texts of the port's operations are UTF-8, everything
// kept inside is bytes in the code page. Refuses what the environment refuses with a RuntimeError of the same kind.
class FormDocument : public std::enable_shared_from_this<FormDocument> {
 public:
  // A new empty form ("Form2"). `codePage` and `libraries` must outlive the document.
  static std::shared_ptr<FormDocument> New(std::string_view name, const CodePage& codePage,
                                           const ControlLibraries& libraries);
  // An existing form. `path` is for messages; `frx` is empty when there is no such file. support::InputError, naming
  // file and line, for a text that is no form. Everything that is not changed afterwards is rendered byte for byte as
  // read.
  static std::shared_ptr<FormDocument> Parse(const std::string& path, std::string frm, std::string frx,
                                             const CodePage& codePage, const ControlLibraries& libraries);
  virtual ~FormDocument() = default;

  // UTF-8.
  virtual std::string Name() const = 0;
  // Error 50132 for a text that is no legal name. Whether another component has the name is the project's question.
  virtual void SetName(std::string_view name) = 0;
  virtual void SetProperty(std::string_view name, const generator::ide::PropertyValue& value) = 0;
  // Handles keep the document alive.
  virtual std::shared_ptr<generator::ide::VBControls> Controls() = 0;
  virtual std::shared_ptr<generator::ide::CodeModule> Code() = 0;
  // True after any successful change.
  virtual bool IsChanged() const = 0;
  // The files as the environment writes them; `stem` is the file name without ".frm", in bytes, for references into the
  // .frx.
  virtual FormFiles Render(std::string_view stem) const = 0;
};

}  // namespace formwizard::adapters::vb6files
