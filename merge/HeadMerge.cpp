#include "merge/HeadMerge.h"

#include "vbtext/Tokens.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace formwizard::merge {
namespace {

using vbtext::Line;

// The lines of the head are a set: what one side added comes, what it took out goes.
class HeadMerger {
 public:
  HeadMerger(const Documents& documents, Output& output) : documents_(documents), output_(output) {}

  void Run() {
    const Lines base = LinesIn(documents_.Base), mine = LinesIn(documents_.Mine), theirs = LinesIn(documents_.Theirs);
    for (const auto& [key, line] : InOrder(mine)) {
      const Line* ofBase = Find(base, key);
      const Line* ofTheirs = Find(theirs, key);
      Merge(key, ofBase, line, ofTheirs);
    }
    for (const auto& [key, line] : InOrder(theirs)) {
      if (!Find(mine, key)) Merge(key, Find(base, key), nullptr, line);
    }
  }

 private:
  using Lines = std::map<std::string, const Line*>;

  // A library by its GUID, whatever its version and file.
  static std::string KeyOf(std::string_view line) {
    const std::size_t open = line.find('{'), close = line.find('}');
    if (!vbtext::BeginsWith(line, "Object") || open >= close || close == std::string_view::npos) {
      return vbtext::Folded(vbtext::BeginsWith(line, "VERSION") ? std::string_view("VERSION") : line);
    }
    return vbtext::Folded(line.substr(open, close - open));
  }
  static Lines LinesIn(const vbtext::Document& document) {
    Lines lines;
    for (std::size_t i = document.Head.First; i < document.Head.Behind; ++i) {
      lines.emplace(KeyOf(document.Lines[i].Text), &document.Lines[i]);
    }
    return lines;
  }
  static const Line* Find(const Lines& lines, const std::string& key) {
    const auto found = lines.find(key);
    return found == lines.end() ? nullptr : found->second;
  }
  static std::vector<std::pair<std::string, const Line*>> InOrder(const Lines& lines) {
    std::vector<std::pair<std::string, const Line*>> row(lines.begin(), lines.end());
    std::ranges::sort(row, {}, [](const auto& entry) { return entry.second; });
    return row;
  }
  static std::string Spelling(const Line* line) {
    std::string text = line ? vbtext::Folded(line->Text) : "";
    std::erase_if(text, vbtext::IsBlank);
    return text;
  }

  void Merge(const std::string& key, const Line* base, const Line* mine, const Line* theirs) {
    const std::string ofBase = Spelling(base), ofMine = Spelling(mine), ofTheirs = Spelling(theirs);
    const auto text = [](const Line* line) { return line ? line->Whole() : std::string_view(); };
    if (ofMine == ofTheirs || ofBase == ofTheirs) {
      output_.AddMine(text(mine));
    } else if (ofBase == ofMine) {
      output_.AddTheirs(text(theirs));
    } else {
      output_.AddConflict("component " + key, text(mine), text(base), text(theirs));
    }
  }

  const Documents& documents_;
  Output& output_;
};

}  // namespace

void MergeHeads(const Documents& documents, Output& output) { HeadMerger(documents, output).Run(); }

}  // namespace formwizard::merge
