// The folder beside a project in which the texts of its kept forms stand.
#pragma once

#include "apps/forms/FormDescription.h"
#include "kept/FormTexts.h"
#include "system/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::apps::forms {

// The texts of one form as they stand there; nothing for a file that is not there.
struct KeptTexts {
  std::optional<std::string> Json, Frm, Frx;
};

class KeptFolder {
 public:
  // "App.forms" beside "App.vbp". `files` must outlive this object.
  KeptFolder(const system::FileSystem& files, const std::string& project);

  const std::string& Path() const { return path_; }
  std::string FileOf(std::string_view form, std::string_view ending) const;

  // support::InputError when something else stands in its place.
  void CheckIsFolder() const;
  // The forms that are kept, in the order of their names. support::InputError for a file whose name no form can have,
  // for two whose names differ in the case of letters alone, and for a form whose description is missing.
  std::vector<std::string> Forms() const;
  KeptTexts Read(const std::string& form) const;
  // support::InputError, with the place, for what is no description of a kept form.
  FormDescription DescriptionIn(const KeptTexts& texts, const std::string& form) const;

 private:
  const system::FileSystem& files_;
  std::string path_;
};

// Whether the form is the one that was made.
bool IsAsMade(const KeptTexts& texts, const MadeForm& made);

}  // namespace formwizard::apps::forms
