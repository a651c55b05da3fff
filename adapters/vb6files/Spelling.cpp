#include "adapters/vb6files/Spelling.h"

#include "runtime/Conversions.h"

namespace formwizard::adapters::vb6files {

const Spelling::Names* Spelling::NamesIn(const std::string& folder) {
  const auto [known, isNew] = folders_.try_emplace(folder);
  std::optional<Names>& spelled = known->second;
  if (!isNew) return spelled ? &*spelled : nullptr;
  const auto names = files_.NamesIn(folder);
  if (!names) return nullptr;
  spelled.emplace();
  for (const std::string& name : *names) spelled->emplace(name, name);
  for (const std::string& name : *names) spelled->emplace(runtime::LowerCase(name), name);
  return &*spelled;
}

std::string Spelling::Of(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  std::string folder = slash == std::string::npos ? "." : path.substr(0, slash == 0 ? 1 : slash);
  const Names* names = NamesIn(folder);
  if (!names && slash != std::string::npos && slash > 0) {
    folder = Of(folder);
    names = NamesIn(folder);
  }
  if (!names) return path;
  auto found = names->find(name);
  if (found == names->end()) found = names->find(runtime::LowerCase(name));
  if (found == names->end()) return path;
  if (slash == std::string::npos) return found->second;
  return (slash == 0 ? "/" : folder + "/") + found->second;
}

}  // namespace formwizard::adapters::vb6files
