#include "merge/Merge.h"

#include "merge/CodeMerge.h"
#include "merge/Diff3.h"
#include "merge/HeaderMerge.h"
#include "merge/ProjectMerge.h"
#include "merge/TabOrder.h"
#include "vbtext/Comparison.h"
#include "vbtext/Controls.h"
#include "vbtext/LineKeys.h"
#include "vbtext/Tokens.h"

#include <optional>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace formwizard::merge {
namespace {

using vbtext::Document;
using vbtext::Line;

constexpr const char* TabOrder = "tab order";  // as a conflict is called

std::vector<vbtext::LineKey> ExactKeys(const std::vector<Line>& lines, vbtext::LineKeys& keys) {
  std::vector<vbtext::LineKey> exact;
  exact.reserve(lines.size());
  // No line is empty for this purpose.
  for (const Line& line : lines) exact.push_back(keys.OfExact("=" + std::string(line.Text)));
  return exact;
}

std::size_t CountOfDoubles(const std::optional<vbtext::HeaderNode>& root) {
  if (!root) return 0;
  std::unordered_set<std::string> names;
  std::size_t doubles = 0;
  for (const vbtext::Control& control : vbtext::ControlsOf(*root)) doubles += !names.insert(control.Key).second;
  return doubles;
}

// How many names of controls or procedures stand twice.
std::size_t CountOfDoubles(const Document& document) {
  std::unordered_set<std::string> names;
  std::size_t doubles = CountOfDoubles(document.Root);
  for (const vbtext::Section& section : document.Code.Sections) {
    if (section.Kind != vbtext::SectionKind::Procedure) continue;
    const std::string key = section.Branch + vbtext::Folded(section.Word) + " " + vbtext::Folded(section.Name) + "()";
    doubles += !names.insert(key).second;
  }
  return doubles;
}

std::set<std::string> Changes(const Document& from, const Document& to) {
  std::set<std::string> changes;
  for (const vbtext::Difference& difference : vbtext::Compare({from, {}}, {to, {}})) {
    changes.insert(std::string(difference.What) + vbtext::Folded(difference.Name));
  }
  return changes;
}

// Whether the result has the changes of both sides and no others: lines may have come into another procedure.
bool HasTheChangesOfBoth(const Documents& documents, const Document& merged) {
  std::set<std::string> wanted = Changes(documents.Base, documents.Mine);
  wanted.merge(Changes(documents.Base, documents.Theirs));
  return Changes(documents.Base, merged) == wanted;
}

// What stands before the code, or the code.
struct Part {
  std::string_view Base, Mine, Theirs;

  bool IsOfMine() const { return Base == Theirs || Mine == Theirs; }
  bool IsOfOneSide(const Options& options) const { return IsOfMine() || (options.TakesPartsWhole && Base == Mine); }
  void AddTo(Output& output) const { IsOfMine() ? output.AddMine(Mine) : output.AddTheirs(Theirs); }
};

Part HeaderOf(const Documents& documents) {
  const auto text = [](const Document& of) { return TextOf(of.Lines, {0, of.CodeLines.First}); };
  return {text(documents.Base), text(documents.Mine), text(documents.Theirs)};
}

Part CodeOf(const Documents& documents) {
  const auto text = [](const Document& of) { return TextOf(of.Lines, of.CodeLines); };
  return {text(documents.Base), text(documents.Mine), text(documents.Theirs)};
}

class Merger {
 public:
  Merger(std::string_view base, std::string_view mine, std::string_view theirs, const Options& options)
      : base_(base), mine_(mine), theirs_(theirs), options_(options) {}

  Merged Run(vbtext::FileKind kind) const {
    if (base_ == theirs_ || mine_ == theirs_) return {std::string(mine_), {}, {}};
    try {
      if (kind == vbtext::FileKind::Project) return OfProject();
      return OfDocument();
    } catch (const vbtext::Fault&) {
      return ByLine();
    }
  }

 private:
  Merged OfProject() const {
    Output output(mine_, options_);
    MergeProjects(base_, mine_, theirs_, output);
    return output.Take();
  }

  Merged OfDocument() const {
    if (std::optional<Merged> merged = OfOneSideEach()) return *std::move(merged);
    const Document base = vbtext::DocumentOf(base_), mine = vbtext::DocumentOf(mine_),
                   theirs = vbtext::DocumentOf(theirs_);
    const std::size_t doubles = std::max(CountOfDoubles(mine), CountOfDoubles(theirs));
    if (base.Root.has_value() != mine.Root.has_value() || base.Root.has_value() != theirs.Root.has_value())
      return ByLine();
    return ByContent({base, mine, theirs}, doubles);
  }

  // Where neither what stands before the code nor the code was changed by both, each is as one side has it. Nothing,
  // where a name of a control that stands twice might come to one that stands twice in the code.
  std::optional<Merged> OfOneSideEach() const {
    const Document base = vbtext::DocumentWithoutCode(base_);
    std::optional<Document> ofMine, ofTheirs;
    const Document& mine = BeginsLike(base, mine_) ? base : ofMine.emplace(vbtext::DocumentWithoutCode(mine_));
    const Document& theirs =
        BeginsLike(base, theirs_) ? base : ofTheirs.emplace(vbtext::DocumentWithoutCode(theirs_));
    const Part header = HeaderOf({base, mine, theirs});
    const Part code{base_.substr(header.Base.size()), mine_.substr(header.Mine.size()),
                    theirs_.substr(header.Theirs.size())};
    if (!header.IsOfOneSide(options_) || !code.IsOfOneSide(options_)) return std::nullopt;
    if (CountOfDoubles((header.IsOfMine() ? mine : theirs).Root) > 0) return std::nullopt;
    Output output(mine_, options_);
    header.AddTo(output);
    code.AddTo(output);
    return output.Take();
  }

  // Whether the same lines stand before the code, as can be seen without taking the text apart.
  static bool BeginsLike(const Document& document, std::string_view text) {
    const std::string_view header = TextOf(document.Lines, {0, document.CodeLines.First});
    return header.ends_with('\n') && text.starts_with(header) &&
           !vbtext::BeginsWith(text.substr(header.size()), "Attribute");
  }

  // As one piece where the pieces do not fit together.
  Merged ByContent(const Documents& documents, std::size_t doubles) const {
    Output output(mine_, options_);
    const Part header = HeaderOf(documents), code = CodeOf(documents);
    if (header.IsOfOneSide(options_)) {
      header.AddTo(output);
    } else {
      MergeHeaders(documents, output);
    }
    if (code.IsOfOneSide(options_)) {
      code.AddTo(output);
    } else {
      MergeCode(documents, output);
    }
    Merged merged = output.Take();
    if (!merged.Conflicts.empty() || options_.Conflicts != Choice::Marks) return merged;
    if (!IsSound(merged.Text, doubles)) return ByLine();
    const bool areOrdered =
        IsOrdered(documents.Base.Code) && IsOrdered(documents.Mine.Code) && IsOrdered(documents.Theirs.Code);
    if (!areOrdered && !HasTheChangesOfBoth(documents, vbtext::DocumentOf(merged.Text))) return WholeConflict();
    if (!documents.Mine.Root || header.IsOfOneSide(options_)) return merged;
    std::optional<std::string> ordered = WithTabOrder(merged.Text, documents, options_.For(TabOrder));
    if (!ordered) return WithHeaderInConflict(documents);
    merged.Text = std::move(*ordered);
    return merged;
  }

  static bool IsSound(const std::string& text, std::size_t doubles) {
    try {
      return CountOfDoubles(vbtext::DocumentOf(text)) <= doubles;
    } catch (const vbtext::Fault&) {
      return false;
    }
  }

  Merged WithHeaderInConflict(const Documents& documents) const {
    const Part header = HeaderOf(documents);
    Output output(mine_, options_);
    output.AddConflict(TabOrder, header.Mine, header.Base, header.Theirs);
    MergeCode(documents, output);
    return output.Take();
  }

  // Whatever it is; a text that cannot be read as what it should be ends here.
  Merged ByLine() const {
    Output output(mine_, options_);
    vbtext::LineKeys keys;
    const std::vector<Line> base = vbtext::LinesOf(base_), mine = vbtext::LinesOf(mine_),
                            theirs = vbtext::LinesOf(theirs_);
    for (const Hunk& hunk : Diff3(ExactKeys(base, keys), ExactKeys(mine, keys), ExactKeys(theirs, keys))) {
      if (hunk.Kind == HunkKind::OfTheirs) {
        output.AddTheirs(TextOf(theirs, hunk.Theirs));
      } else if (hunk.Kind == HunkKind::Conflict) {
        output.AddConflict("text", TextOf(mine, hunk.Mine), TextOf(base, hunk.Base), TextOf(theirs, hunk.Theirs));
      } else {
        output.AddMine(TextOf(mine, hunk.Mine));
      }
    }
    Merged merged = output.Take();
    if (merged.Conflicts.empty() && options_.Conflicts == Choice::Marks && IsDocument(mine_) && IsDocument(theirs_)) {
      const std::size_t doubles =
          std::max(CountOfDoubles(vbtext::DocumentOf(mine_)), CountOfDoubles(vbtext::DocumentOf(theirs_)));
      if (!IsSound(merged.Text, doubles)) return WholeConflict();
    }
    return merged;
  }

  static bool IsDocument(std::string_view text) {
    try {
      vbtext::DocumentOf(text);
      return true;
    } catch (const vbtext::Fault&) {
      return false;
    }
  }

  Merged WholeConflict() const {
    Output output(mine_, options_);
    output.AddConflict("text", mine_, base_, theirs_);
    return output.Take();
  }

  std::string_view base_, mine_, theirs_;
  const Options& options_;
};

}  // namespace

Merged Merge(std::string_view base, std::string_view mine, std::string_view theirs, vbtext::FileKind kind,
             const Options& options) {
  return Merger(base, mine, theirs, options).Run(kind);
}

}  // namespace formwizard::merge
