#include "adapters/vb6files/Spelling.h"

#include "runtime/Conversions.h"
#include "system/Paths.h"

namespace formwizard::adapters::vb6files {
namespace {

// In lower case, with a zero for all letters beside each other that are beyond ASCII. No file is called so.
std::string AsciiOf(const std::string& name) {
  std::string ascii;
  for (const char c : runtime::LowerCase(name)) {
    if (static_cast<unsigned char>(c) < 0x80) {
      ascii += c;
    } else if (!ascii.ends_with('\0')) {
      ascii += '\0';
    }
  }
  return ascii;
}

}  // namespace

const Spelling::Names* Spelling::NamesIn(const std::string& folder) {
  const auto [known, isNew] = folders_.try_emplace(folder);
  std::optional<Names>& spelled = known->second;
  if (!isNew) return spelled ? &*spelled : nullptr;
  const auto names = files_.NamesIn(folder);
  if (!names) return nullptr;
  spelled.emplace();
  for (const std::string& name : *names) spelled->emplace(name, name);
  for (const std::string& name : *names) spelled->emplace(runtime::LowerCase(name), name);
  for (const std::string& name : *names) spelled->emplace(AsciiOf(name), name);
  return &*spelled;
}

std::string Spelling::Of(const std::string& path) {
  std::string part(system::FolderPart(path));
  const std::string name = path.substr(part.size());
  std::string folder = system::FolderOf(path);
  const Names* names = NamesIn(folder);
  const bool mayBeMisspelled = folder.size() < part.size();  // no root, no drive, not where the program is
  if (!names && mayBeMisspelled) {
    folder = Of(folder);
    names = NamesIn(folder);
    part = folder + part.back();
  }
  if (!names) return path;
  auto found = names->find(name);
  if (found == names->end()) found = names->find(runtime::LowerCase(name));
  return part + (found == names->end() ? name : found->second);
}

bool Spelling::HasOtherLetters(const std::string& path) {
  const std::string_view part = system::FolderPart(path);
  const std::string folder = system::FolderOf(path), ascii = AsciiOf(path.substr(part.size()));
  if (const Names* names = NamesIn(folder)) return ascii.find('\0') != std::string::npos && names->contains(ascii);
  return folder.size() < part.size() && HasOtherLetters(folder);
}

}  // namespace formwizard::adapters::vb6files
