#include "vbtext/Code.h"

#include "runtime/Conversions.h"
#include "vbtext/LogicalLines.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace formwizard::vbtext {
namespace {

bool IsOneOf(std::string_view word, auto... words) { return (runtime::EqualIgnoringCase(word, words) || ...); }

// Without a line number and the words that say who may see the thing.
Statement WithoutScope(Statement statement) {
  if (!statement.empty() && statement[0].Kind == TokenKind::Number) statement = statement.subspan(1);
  while (IsOneOf(WordIn(statement, 0), "Private", "Public", "Friend", "Static", "Global")) {
    statement = statement.subspan(1);
  }
  return statement;
}

struct Heading {
  std::string_view Word, Name;
};

// The procedure that a statement begins.
std::optional<Heading> ProcedureIn(Statement statement) {
  statement = WithoutScope(statement);
  if (IsOneOf(WordIn(statement, 0), "Property") && IsOneOf(WordIn(statement, 1), "Get", "Let", "Set")) {
    statement = statement.subspan(1);
  } else if (!IsOneOf(WordIn(statement, 0), "Sub", "Function")) {
    return std::nullopt;
  }
  if (statement.size() < 2 || statement[1].Kind != TokenKind::Name) return std::nullopt;
  return Heading{statement[0].Text, statement[1].Text};
}

bool EndsProcedure(Statement statement) {
  if (!statement.empty() && statement[0].Kind == TokenKind::Number) statement = statement.subspan(1);
  return IsOneOf(WordIn(statement, 0), "End") && IsOneOf(WordIn(statement, 1), "Sub", "Function", "Property");
}

bool BeginsBlock(Statement statement) {
  statement = WithoutScope(statement);
  const bool isWhole = statement.size() == 2 || (statement.size() == 3 && statement[2].Kind == TokenKind::Comment);
  return isWhole && IsOneOf(WordIn(statement, 0), "Type", "Enum") && statement[1].Kind == TokenKind::Name;
}

bool EndsBlock(Statement statement) {
  return IsOneOf(WordIn(statement, 0), "End") && IsOneOf(WordIn(statement, 1), "Type", "Enum");
}

// What the statement declares first: "x" of "Private WithEvents x As Y".
Heading DeclarationIn(Statement statement) {
  const Statement unscoped = WithoutScope(statement);
  const std::string_view scope = unscoped.size() < statement.size() ? WordIn(statement, 0) : std::string_view();
  Heading heading{WordIn(unscoped, 0), WordIn(unscoped, 1)};
  if (IsOneOf(heading.Word, "Declare", "Attribute") && unscoped.size() > 2) {
    heading.Name = IsOneOf(heading.Word, "Declare") ? WordIn(unscoped, 2) : heading.Name;
  } else if (IsOneOf(heading.Word, "WithEvents") || IsOneOf(heading.Name, "WithEvents")) {
    heading = {"WithEvents", WordIn(unscoped, IsOneOf(heading.Word, "WithEvents") ? 1 : 2)};
  } else if (!scope.empty() && !IsOneOf(heading.Word, "Const", "Type", "Enum", "Event", "Declare")) {
    heading = {scope, WordIn(unscoped, 0)};
  }
  return heading;
}

// Whether a line of a procedure says at first sight that it neither begins nor ends anything and stands alone. Most do,
// and need not be taken apart.
bool IsPlain(std::string_view line) {
  constexpr std::array<std::string_view, 9> telling{"End",    "Sub",     "Public",   "Friend",  "Static",
                                                    "Global", "Private", "Function", "Property"};
  while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
  while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
  if (line.empty()) return true;
  if (IsDigit(line.front()) || line.front() == '#' || line.back() == '_') return false;
  if (line.find(':') != std::string_view::npos) return false;
  const auto behind = std::ranges::find_if_not(line, IsNameByte);
  const std::string_view word = line.substr(0, static_cast<std::size_t>(behind - line.begin()));
  return std::ranges::none_of(telling, [&](std::string_view each) {
    return each.size() == word.size() && runtime::EqualIgnoringCase(each, word);
  });
}

class Reader {
 public:
  Reader(const std::vector<Line>& lines, std::size_t from) : lines_(lines, {from, lines.size()}), unread_{from, from} {}

  Module Read() {
    for (LogicalLine line; lines_.Next(line);) {
      last_ = line.Lines.Behind;
      if (IsDirective(line.Tokens))
        ReadDirective(line);
      else if (inProcedure_)
        ReadInProcedure(line);
      else if (inBlock_)
        ReadInBlock(line);
      else
        ReadOutside(line);
      if (inProcedure_) last_ = lines_.SkipWhile(IsPlain);
    }
    if (inProcedure_) Miss(open_.Body.First, "the end of the procedure that begins here");
    if (inBlock_) Miss(open_.Body.First, "the end of the block that begins here");
    if (!branches_.empty()) Miss(branches_.back().Line, "\"#End If\"");
    if (inProcedure_ || inBlock_) Close(last_);
    AddRemark(last_);
    return std::move(module_);
  }

 private:
  struct Branch {
    std::size_t Line;  // of its #If
    std::string Conditions;
  };

  static std::vector<Statement> StatementsOf(const LogicalLine& line) {
    std::vector<Statement> statements;
    auto from = line.Tokens.begin();
    for (auto at = from;; ++at) {
      const bool isEnd = at == line.Tokens.end();
      if (!isEnd && at->Text != ":") continue;
      if (at != from) statements.emplace_back(from, at);
      if (isEnd) return statements;
      from = at + 1;
    }
  }

  static constexpr std::size_t MostLevels = 64;  // of #If, so that no text takes time for each level of each section

  std::string BranchesNow() const {
    std::string all;
    for (const Branch& branch : std::span(branches_).first(std::min(branches_.size(), MostLevels)))
      all += branch.Conditions + "\n";
    return all;
  }

  void ReadDirective(const LogicalLine& line) {
    const std::string_view word = WordIn(line.Tokens, 1);
    std::string condition;
    for (const Token& token : Statement(line.Tokens).subspan(1)) {
      AppendFolded(token.Text, condition);
      condition += ' ';
    }
    if (IsOneOf(word, "If")) {
      if (branches_.size() == MostLevels) Miss(line.Lines.First, "at most 64 levels of \"#If\"");
      branches_.push_back({line.Lines.First, condition});
    } else if (branches_.empty()) {
      Miss(line.Lines.First, "\"#If\" before this line");
    } else if (IsOneOf(word, "End", "EndIf")) {
      branches_.pop_back();
    } else {
      branches_.back().Conditions += condition;  // what holds is that none of those before it does
    }
    if (inProcedure_ || inBlock_) return;
    AddRemark(line.Lines.First);
    Add({SectionKind::Directive, {}, word, BranchesNow(), line.Lines, line.Lines});
  }

  void ReadOutside(const LogicalLine& line) {
    const bool isRemark = std::ranges::all_of(line.Tokens, [](const Token& t) { return t.Kind == TokenKind::Comment; });
    if (isRemark) return;  // waits for what follows
    const std::vector<Statement> statements = StatementsOf(line);
    if (statements.empty()) return;
    const Statement first = statements.front();
    if (const std::optional<Heading> heading = ProcedureIn(first)) {
      open_ = {SectionKind::Procedure, heading->Name, heading->Word, BranchesNow(), {unread_.First, 0}, line.Lines};
      inProcedure_ = true;
      if (std::ranges::any_of(statements, EndsProcedure)) Close(line.Lines.Behind);
      return;
    }
    if (EndsProcedure(first) || EndsBlock(first)) Miss(line.Lines.First, "the beginning of what ends here");
    AddRemark(line.Lines.First);
    const Heading heading = DeclarationIn(first);
    open_ = {SectionKind::Declaration, heading.Name, heading.Word, BranchesNow(), line.Lines, line.Lines};
    inBlock_ = BeginsBlock(first);
    if (!inBlock_ || std::ranges::any_of(statements, EndsBlock)) Close(line.Lines.Behind);
  }

  void ReadInProcedure(const LogicalLine& line) {
    for (const Statement statement : StatementsOf(line)) {
      // The branches of an #If can have a first line each for one procedure.
      const bool isNew = ProcedureIn(statement).has_value() && BranchesNow() == open_.Branch;
      if (isNew) Miss(line.Lines.First, "\"End " + EndWord() + "\" before this line");
      if (EndsProcedure(statement)) return Close(line.Lines.Behind);
    }
  }

  void ReadInBlock(const LogicalLine& line) {
    if (EndsBlock(line.Tokens)) Close(line.Lines.Behind);
  }

  std::string EndWord() const {
    return std::string(IsOneOf(open_.Word, "Sub", "Function") ? open_.Word : std::string_view("Property"));
  }

  void Close(std::size_t behind) {
    open_.Lines.Behind = open_.Body.Behind = behind;
    inProcedure_ = inBlock_ = false;
    Add(std::move(open_));
  }

  void AddRemark(std::size_t behind) {
    if (unread_.First < behind) {
      const LineRange lines{unread_.First, behind};
      Add({SectionKind::Remark, {}, {}, BranchesNow(), lines, lines});
    }
  }

  void Add(Section section) {
    unread_.First = section.Lines.Behind;
    module_.Sections.push_back(std::move(section));
  }

  void Miss(std::size_t line, std::string expected) {
    if (!module_.Wrong) module_.Wrong = {line, std::move(expected)};
  }

  LogicalLines lines_;
  LineRange unread_;  // from First on nothing is in a section yet
  std::size_t last_ = unread_.First;
  Module module_;
  Section open_{};
  bool inProcedure_ = false, inBlock_ = false;
  std::vector<Branch> branches_;
};

}  // namespace

Module ModuleOf(const std::vector<Line>& lines, std::size_t from) { return Reader(lines, from).Read(); }

}  // namespace formwizard::vbtext
