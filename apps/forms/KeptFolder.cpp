#include "apps/forms/KeptFolder.h"

#include "adapters/vb6files/Values.h"
#include "apps/forms/DescriptionText.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "system/Limits.h"
#include "system/Paths.h"

#include <algorithm>
#include <map>
#include <set>

namespace formwizard::apps::forms {
namespace {

constexpr std::string_view Json = ".json", Frm = ".frm", Frx = ".frx";

std::string FolderBeside(const std::string& project) {
  const std::size_t name = system::FolderPart(project).size();
  const std::size_t dot = project.rfind('.');
  return (dot == std::string::npos || dot < name ? project : project.substr(0, dot)) + ".forms";
}

bool EndsWith(std::string_view name, std::string_view ending) {
  return name.size() > ending.size() && name.ends_with(ending);
}

}  // namespace

KeptFolder::KeptFolder(const system::FileSystem& files, const std::string& project)
    : files_(files), path_(FolderBeside(project)) {}

std::string KeptFolder::FileOf(std::string_view form, std::string_view ending) const {
  return std::string(path_).append("/").append(form).append(ending);
}

void KeptFolder::CheckIsFolder() const {
  const system::FileKind kind = files_.KindOf(path_);
  if (kind == system::FileKind::None || kind == system::FileKind::Folder) return;
  if (kind == system::FileKind::Link && files_.KindOf(files_.BehindLinks(path_)) == system::FileKind::Folder) return;
  throw support::InputError(path_ + ": this is no folder; take it away, kept forms stand in a folder of this name");
}

std::vector<std::string> KeptFolder::Forms() const {
  CheckIsFolder();
  const std::optional<std::vector<std::string>> names = files_.NamesIn(path_);
  std::set<std::string> described, others;
  std::map<std::string, std::string> spelled;  // by their names in small letters
  for (const std::string& name : names.value_or(std::vector<std::string>())) {
    const bool isDescription = EndsWith(name, Json);
    if (name.starts_with('.') || (!isDescription && !EndsWith(name, Frm))) continue;
    std::string form = name.substr(0, name.rfind('.'));
    const std::string problem = adapters::vb6files::ProblemOfObjectName(form);
    if (!problem.empty()) {
      throw support::InputError(std::string(path_)
                                    .append("/")
                                    .append(name)
                                    .append(": the file is called as no form can be, by a name ")
                                    .append(problem)
                                    .append("; name it after its form, or take it out of the folder"));
    }
    const std::string& known = spelled.emplace(runtime::LowerCase(form), form).first->second;
    if (known != form) {
      throw support::InputError(std::string(path_).append(": ").append(known).append(" and ").append(form).append(
          " are one form; give both of its files one spelling, or take two out"));
    }
    (isDescription ? described : others).insert(std::move(form));
  }
  for (const std::string& form : others) {
    if (described.contains(form)) continue;
    throw support::InputError(FileOf(form, Json) +
                              ": the description of a kept form is not there; restore it, or take " + form +
                              ".frm out of the folder");
  }
  return {described.begin(), described.end()};
}

KeptTexts KeptFolder::Read(const std::string& form) const {
  return {files_.Read(FileOf(form, Json), system::LargestDescription), files_.Read(FileOf(form, Frm)),
          files_.Read(FileOf(form, Frx))};
}

FormDescription KeptFolder::DescriptionIn(const KeptTexts& texts, const std::string& form) const {
  const std::string file = FileOf(form, Json);
  if (!texts.Json) throw support::InputError(file + ": there is no such file; \"ostrel-form-wizard keep\" makes it");
  std::vector<FormDescription> forms = FormDescriptionsIn(*texts.Json, file);
  if (forms.size() != 1 || !forms.front().Made) {
    throw support::InputError(
        file +
        ": this describes no kept form, which has a member \"made\"; restore the file, or make it "
        "anew with \"ostrel-form-wizard keep\"");
  }
  return std::move(forms.front());
}

bool IsAsMade(const KeptTexts& texts, const MadeForm& made) {
  const auto sum = [](const std::optional<std::string>& bytes) { return bytes ? SumOf(*bytes) : ""; };
  return sum(texts.Frm) == made.Form && sum(texts.Frx) == made.Pictures;
}

}  // namespace formwizard::apps::forms
