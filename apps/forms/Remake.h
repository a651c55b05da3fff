// Makes forms once more as they were made, in a project in memory, to see what has become of them.
#pragma once

#include "apps/forms/FormDescription.h"
#include "apps/forms/Offers.h"
#include "kept/FormTexts.h"
#include "system/FileSystem.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::forms {

// The form that is made once more.
struct FormToRemake {
  std::string File;              // its path on the disk
  const kept::FormTexts& Texts;  // what stands there
  bool IsReused = true;     // what the wizard does not set, and code in front of its own, stay; otherwise it is new
  std::string ObjectLines;  // of the project: the libraries of controls that it has
  int CodePage = 1252;
};

struct Remade {
  kept::FormTexts Form;
  std::optional<FormDescription> Description;  // as a kept one; nothing where that was not wanted
  std::vector<std::string> Messages;           // of what the environment refused
};

class Remake {
 public:
  // `files` must outlive this object. `program` is the version of it.
  Remake(system::FileSystem& files, std::string dictionary, std::string program);
  ~Remake();
  Remake(const Remake&) = delete;
  Remake& operator=(const Remake&) = delete;

  // NotOffered when the description asks for what the dictionary has not, and when the form's code is not that of a
  // form of the class.
  // With `describes`, or when the form is another one, it comes with its description.
  Remade Make(const FormDescription& description, const FormToRemake& form, bool describes = true);

  // The same for a form that has come out like this of one that the project had before: whatever that had of its own
  // shows in what a new one would be otherwise.
  bool IsLikeNew(const FormDescription& description, const FormToRemake& form) {
    FormToRemake anew = form;
    anew.IsReused = false;
    return Make(description, anew, false).Form == form.Texts;
  }

  // What the class of the description offers now.
  const OfferedClass& OfferedTo(const FormDescription& description);

  const std::string& Program() const { return program_; }

 private:
  class Stage;
  Stage& StageFor(const FormDescription& description);

  system::FileSystem& files_;
  std::string dictionary_, program_;
  std::map<std::string, std::unique_ptr<Stage>> stages_;  // by language
};

}  // namespace formwizard::apps::forms
