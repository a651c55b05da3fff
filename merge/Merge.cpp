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
  const std::vector<vbtext::Control> controls = vbtext::ControlsOf(*root);
  std::unordered_set<std::string_view> names(controls.size());
  for (const vbtext::Control& control : controls) names.insert(control.Key);
  return controls.size() - names.size();
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

bool AreOrdered(const Documents& documents) {
  return IsOrdered(documents.Base.Code) && IsOrdered(documents.Mine.Code) && IsOrdered(documents.Theirs.Code);
}

// What stands before the code, or the code.
struct Part {
  std::string_view Base, Mine, Theirs;

  bool IsOfMine() const { return Base == Theirs || Mine == Theirs; }
  bool IsOfOneSide(const Options& options) const { return IsOfMine() || (options.TakesPartsWhole && Base == Mine); }
  void AddTo(Output& output) const { IsOfMine() ? output.AddMine(Mine) : output.AddTheirs(Theirs); }
};

struct Parts {
  Part Header, Code;
};

// Three texts, each taken apart only as far as is asked for.
class Readers {
 public:
  // Throws vbtext::Fault for a text of which it cannot be told where its code begins.
  Readers(std::string_view base, std::string_view mine, std::string_view theirs)
      : base_{base, base.substr(0, vbtext::StartOfCode(base)), {}}, mine_(LikeBase(mine)), theirs_(LikeBase(theirs)) {}

  Parts InParts() const {
    const auto code = [](const Side& side) { return side.Text.substr(side.Header.size()); };
    return {{base_.Header, mine_.Header, theirs_.Header}, {code(base_), code(mine_), code(theirs_)}};
  }
  const std::optional<vbtext::HeaderNode>& RootOfMine() { return HeaderOf(mine_).Root; }
  const std::optional<vbtext::HeaderNode>& RootOfTheirs() { return HeaderOf(theirs_).Root; }

  // All of them; their code only where it is asked for.
  Documents All(bool withCode) {
    for (Side* side : {&base_, &mine_, &theirs_}) {
      HeaderOf(*side);
      if (withCode) vbtext::ReadCode(side->Text, *side->File);
    }
    return {*base_.File, *mine_.File, *theirs_.File};
  }

 private:
  struct Side {
    std::string_view Text, Header;
    std::optional<Document> File;
  };

  // One that has the header of the base need not be looked at for where it ends.
  Side LikeBase(std::string_view text) const {
    const std::string_view header = base_.Header;
    const bool isLikeBase = header.ends_with('\n') && text.starts_with(header) &&
                            !vbtext::BeginsWith(text.substr(header.size()), "Attribute");
    if (isLikeBase) return {text, header, {}};
    Document file = vbtext::DocumentWithoutCode(text);
    return {text, text.substr(0, StartOfCode(file)), std::move(file)};
  }

  static const Document& HeaderOf(Side& side) {
    if (!side.File) side.File = vbtext::DocumentWithoutCode(side.Text);
    return *side.File;
  }

  Side base_, mine_, theirs_;
};

class Merger {
 public:
  Merger(std::string_view base, std::string_view mine, std::string_view theirs, const Options& options)
      : base_(base), mine_(mine), theirs_(theirs), options_(options) {}

  Merged Run(vbtext::FileKind kind) const {
    if (base_ == theirs_ || mine_ == theirs_) return {std::string(mine_), {}, {}, true};
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
    Readers readers(base_, mine_, theirs_);
    const Parts parts = readers.InParts();
    if (IsOfOneSideEach(parts, readers)) {
      Output output(mine_, options_);
      parts.Header.AddTo(output);
      parts.Code.AddTo(output);
      Merged merged = output.Take();
      merged.HasHeaderOfOneSide = true;
      return merged;
    }
    const Documents documents = readers.All(!parts.Code.IsOfOneSide(options_));
    const auto& [base, mine, theirs] = documents;
    if (base.Root.has_value() != mine.Root.has_value() || base.Root.has_value() != theirs.Root.has_value())
      return ByLine();
    return ByContent(documents, parts);
  }

  // Neither of the parts was changed by both. Not where a name of a control that stands twice might come to one that
  // stands twice in the code.
  bool IsOfOneSideEach(const Parts& parts, Readers& readers) const {
    if (!parts.Header.IsOfOneSide(options_) || !parts.Code.IsOfOneSide(options_)) return false;
    return CountOfDoubles(parts.Header.IsOfMine() ? readers.RootOfMine() : readers.RootOfTheirs()) == 0;
  }

  // As one piece where the pieces do not fit together.
  Merged ByContent(const Documents& documents, const Parts& parts) const {
    Output output(mine_, options_);
    const bool isHeaderOfOneSide = parts.Header.IsOfOneSide(options_),
               isCodeOfOneSide = parts.Code.IsOfOneSide(options_);
    isHeaderOfOneSide ? parts.Header.AddTo(output) : MergeHeaders(documents, output);
    isCodeOfOneSide ? parts.Code.AddTo(output) : MergeCode(documents, output);
    Merged merged = output.Take();
    merged.HasHeaderOfOneSide = isHeaderOfOneSide;
    if (!merged.Conflicts.empty() || options_.Conflicts != Choice::Marks) return merged;
    const std::optional<Document> document = SoundIn(merged.Text, isCodeOfOneSide);
    if (!document) return ByLine();
    if (!isCodeOfOneSide && !AreOrdered(documents) && !HasTheChangesOfBoth(documents, *document)) {
      return WholeConflict();
    }
    if (!documents.Mine.Root || isHeaderOfOneSide) return merged;
    std::optional<std::string> ordered = WithTabOrder(merged.Text, *document, documents, options_.For(TabOrder));
    if (!ordered) return WithHeaderInConflict(documents, parts);
    return {*std::move(ordered), {}, std::move(merged.Notes)};
  }

  // The text taken apart, without its code where that is one side's and no name of a control stands twice. Nothing for
  // a text that cannot be read, or in which more names stand twice than on either side.
  std::optional<Document> SoundIn(std::string_view text, bool isCodeOfOneSide) const {
    try {
      Document document = vbtext::DocumentWithoutCode(text);
      if (isCodeOfOneSide && CountOfDoubles(document.Root) == 0) return document;
      vbtext::ReadCode(text, document);
      const std::size_t doubles = CountOfDoubles(document);
      const auto isOn = [&](std::string_view side) { return doubles <= CountOfDoubles(vbtext::DocumentOf(side)); };
      return doubles == 0 || isOn(mine_) || isOn(theirs_) ? std::optional(std::move(document)) : std::nullopt;
    } catch (const vbtext::Fault&) {
      return std::nullopt;
    }
  }

  Merged WithHeaderInConflict(const Documents& documents, const Parts& parts) const {
    Output output(mine_, options_);
    output.AddConflict(TabOrder, parts.Header.Mine, parts.Header.Base, parts.Header.Theirs);
    parts.Code.IsOfOneSide(options_) ? parts.Code.AddTo(output) : MergeCode(documents, output);
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
    const bool isToBeSound = merged.Conflicts.empty() && options_.Conflicts == Choice::Marks;
    if (isToBeSound && IsDocument(mine_) && IsDocument(theirs_) && !SoundIn(merged.Text, false)) return WholeConflict();
    return merged;
  }

  static bool IsDocument(std::string_view text) {
    try {
      vbtext::StartOfCode(text);
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
