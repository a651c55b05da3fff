// Makes a form of a project on disk once more, to compare it with what stands there.
#include "adapters/vb6files/ProjectOnDisk.h"

#include "adapters/vb6files/FormReader.h"

#include <utility>

namespace formwizard::adapters::vb6files {

using generator::ide::Int32;

void ProjectOnDisk::CompareNext(std::string_view stem, std::string_view codeBegins) {
  const std::string name = codePage_.Encode(stem), begins = codePage_.Encode(codeBegins);
  int& number = nextToCompare_.try_emplace(name + '\n' + begins, 1).first->second;
  for (;; ++number) {
    Entry* entry = FindEntry(number == 1 ? name : name + std::to_string(number));
    if (!entry) return;
    if (entry->IsForm && !entry->IsFinished && !entry->Document && TakeForComparison(*entry, Int32(number), begins)) {
      ++number;
      return;
    }
  }
}

bool ProjectOnDisk::CompareForm(std::string_view name, int number, std::string_view codeBegins) {
  Entry* const entry = FindEntry(codePage_.Encode(name));
  if (!entry || !entry->IsForm || entry->Document) return false;
  return TakeForComparison(*entry, Int32(number), codePage_.Encode(codeBegins));
}

void ProjectOnDisk::CountFrom(std::string_view stem, int number) { firstFree_[codePage_.Encode(stem)] = number; }

void ProjectOnDisk::CountNewFormsFrom(int number) { firstFreeForm_ = number; }

bool ProjectOnDisk::TakeForComparison(Entry& entry, Int32 number, std::string_view codeBegins) {
  std::string path = projectFiles_.PathOf(entry.Path);
  std::optional<std::string> frm = projectFiles_.Read(path, ReadFor::Saving);
  if (!frm || FindLine(*frm, codeBegins) == std::string::npos) return false;
  std::string frx = projectFiles_.FrxBeside(path, *frm, ReadFor::Saving);
  entry.Document = FormDocument::Emptied(path, *frm, frx, codeBegins, codePage_, libraries_);
  open_.push_back(&entry);
  compared_ = {&entry, number, std::move(path), {*std::move(frm), std::move(frx)}};
  return true;
}

void ProjectOnDisk::FinishCompared(Entry& entry) {
  Compared old = *std::exchange(compared_, std::nullopt);
  FormFiles content = entry.Document->Render(StemOf(entry.Path));
  entry.ControlCount = entry.Document->Controls()->Count();
  entry.IsFinished = true;
  entry.Document.reset();
  const std::string frxPath = old.Path.substr(0, old.Path.rfind('.')) + ".frx";
  const auto announce = [&](const std::string& path, std::string& was, std::string& is) {
    if (was != is) Announce(path, std::move(was), std::move(is));
  };
  announce(old.Path, old.Files.Frm, content.Frm);
  announce(frxPath, old.Files.Frx, content.Frx);
}

}  // namespace formwizard::adapters::vb6files
