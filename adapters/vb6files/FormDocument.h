// One form of a project: its designer, its code, and the text of its files.
#pragma once

#include "adapters/vb6files/CodeText.h"
#include "adapters/vb6files/ControlLibraries.h"
#include "adapters/vb6files/Designer.h"
#include "adapters/vb6files/FormHeader.h"
#include "adapters/vb6files/KeptCode.h"
#include "generator/ide/Ide.h"
#include "system/CodePage.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// The bytes of a form's files, which stand elsewhere; Frx is empty when the form needs none.
struct FormBytes {
  std::string_view Frm, Frx;
};
// The same with bytes of its own.
struct FormFiles {
  std::string Frm;
  std::string Frx;

  operator FormBytes() const { return {Frm, Frx}; }
};

// Where a text has the line, counted from 0; npos when it has not.
std::size_t FindLine(std::string_view text, std::string_view line);

// Behaves as the environment's form designer and code module do. Texts of the port's operations are UTF-8, everything
// kept inside is bytes in the code page. Refuses what the environment refuses with a RuntimeError of the same kind. A
// form that was read with controls on it is looked at, not changed: its changing operations raise error 440.
class FormDocument : public std::enable_shared_from_this<FormDocument>,
                     private generator::ide::VBControls,
                     private generator::ide::CodeModule {
 public:
  // A new empty form ("Form2"). `codePage` and `libraries` must outlive the document.
  static std::shared_ptr<FormDocument> New(std::string_view name, const system::CodePage& codePage,
                                           const ControlLibraries& libraries);
  // An existing form; `path` is for messages, `frx` is empty when there is no such file. support::InputError, naming
  // file and line, for a text that is no form.
  static std::shared_ptr<FormDocument> Parse(const std::string& path, std::string frm, std::string_view frx,
                                             const system::CodePage& codePage, const ControlLibraries& libraries);

  // The same without controls, and with no more code than what stands in front of the line `codeBegins`: what a form
  // was before the wizard filled it, as far as that can be told.
  static std::shared_ptr<FormDocument> Emptied(const std::string& path, std::string_view frm, std::string_view frx,
                                               std::string_view codeBegins, const system::CodePage& codePage,
                                               const ControlLibraries& libraries);

  // UTF-8.
  std::string Name() const;
  // Error 50132 for a text that is no legal name. Whether another component has the name is the project's question.
  void SetName(std::string_view name);
  void SetProperty(const generator::ide::PropertyName& name, const generator::ide::PropertyValue& value);
  // Handles keep the document alive.
  std::shared_ptr<generator::ide::VBControls> Controls();
  std::shared_ptr<generator::ide::CodeModule> Code();

  // True after any successful change.
  bool IsChanged() const { return changed_; }
  // The first name that a control was to have and could not.
  const std::optional<RefusedName>& FirstRefusedName() const { return designer_.FirstRefused(); }
  // Of a changed form that had code when it was read.
  std::optional<KeptCode> CodeKept() const;
  // Whether the environment may refuse or mangle the form. False only where that is certain, from a few numbers and not
  // from its text: of a form of a usual size that was made anew or of an empty one.
  bool IsWorthALook() const;
  // The files as the environment writes them, or as they were read when nothing changed. `stem` is the file name
  // without ".frm", in bytes, for references into the .frx.
  FormFiles Render(std::string_view stem) const;

 private:
  FormDocument(FormHeader header, const system::CodePage& codePage, const ControlLibraries& libraries);

  generator::ide::Int32 Count() const override;
  std::shared_ptr<generator::ide::VBControl> Add(std::string_view progId,
                                                 const std::shared_ptr<generator::ide::VBControl>& container) override;
  generator::ide::Int32 CountOfLines() const override;
  void InsertLines(generator::ide::Int32 line, std::string_view text) override;
  generator::ide::Int32 CreateEventProc(std::string_view event, std::string_view object) override;

  void BeginChange();
  void AppendHead(FormText& out) const;
  void AppendAttributes(FormText& out) const;

  const system::CodePage& codePage_;
  const ControlLibraries& libraries_;
  std::string original_, originalFrx_;  // as read, until something changes
  std::string nameAsRead_;
  bool holdsCodeAsRead_ = false;
  std::vector<std::string> proceduresAsRead_;
  std::string class_ = "VB.Form", name_;
  std::vector<std::string> headLines_, attributeLines_;
  std::size_t controlsAsRead_ = 0;
  FormHeader header_;
  Designer designer_;
  CodeText code_;
  bool changed_ = false, wasEmpty_ = false;
};

}  // namespace formwizard::adapters::vb6files
