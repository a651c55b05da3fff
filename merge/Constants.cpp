#include "merge/Constants.h"

#include "runtime/Conversions.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace formwizard::merge {
namespace {

struct Constant {
  std::string Name;  // folded
  std::string_view Text, Value;
};

class Constants {
 public:
  explicit Constants(std::string_view setting) {
    std::string_view rest = runtime::Trimmed(setting, " \t\"");
    while (!rest.empty()) {
      const std::string_view text = runtime::Trimmed(rest.substr(0, rest.find(':')), " \t");
      rest.remove_prefix(std::min(rest.find(':'), rest.size() - 1) + 1);
      const std::size_t equals = std::min(text.find('='), text.size());
      std::string name = vbtext::Folded(runtime::Trimmed(text.substr(0, equals), " \t"));
      isUnique_ = places_.emplace(name, all_.size()).second && isUnique_;
      all_.push_back({std::move(name), text, runtime::Trimmed(text.substr(equals), "= \t")});
    }
  }

  const std::vector<Constant>& All() const { return all_; }
  bool IsUnique() const { return isUnique_; }
  const Constant* Find(const std::string& name) const {
    const auto found = places_.find(name);
    return found == places_.end() ? nullptr : &all_[found->second];
  }

 private:
  std::vector<Constant> all_;
  std::unordered_map<std::string, std::size_t> places_;
  bool isUnique_ = true;
};

bool IsSame(const Constant* a, const Constant* b) { return a && b ? a->Value == b->Value : a == b; }

}  // namespace

std::optional<std::string> MergedConstants(std::string_view base, std::string_view mine, std::string_view theirs) {
  const Constants ofBase(base), ofMine(mine), ofTheirs(theirs);
  if (!ofBase.IsUnique() || !ofMine.IsUnique() || !ofTheirs.IsUnique()) return std::nullopt;
  std::vector<std::string> names;
  for (const Constant& constant : ofMine.All()) names.push_back(constant.Name);
  for (const Constant& constant : ofTheirs.All()) {
    if (!ofMine.Find(constant.Name)) names.push_back(constant.Name);
  }
  std::string merged;
  for (const std::string& name : names) {
    const Constant *b = ofBase.Find(name), *m = ofMine.Find(name), *t = ofTheirs.Find(name);
    const bool staysMine = IsSame(b, t) || IsSame(m, t);
    if (!staysMine && !IsSame(b, m)) return std::nullopt;
    if (const Constant* stays = staysMine ? m : t) merged += (merged.empty() ? "" : " : ") + std::string(stays->Text);
  }
  return '"' + merged + '"';
}

}  // namespace formwizard::merge
