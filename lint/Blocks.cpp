#include "lint/Blocks.h"

#include "runtime/Conversions.h"
#include "vbtext/LogicalLines.h"

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::lint {
namespace {

using vbtext::Section;
using vbtext::Statement;
using vbtext::TokenKind;
using vbtext::WordIn;

bool Is(std::string_view word, std::string_view keyword) { return runtime::EqualIgnoringCase(word, keyword); }

// The words that begin and end a block. The second one, where there is one, tells it from another statement.
struct Block {
  std::string_view Opens, Closes, ClosesToo;
};
constexpr std::array Blocks{
    Block{"If", "End", "If"},   Block{"For", "Next", ""},         Block{"Do", "Loop", ""},
    Block{"While", "Wend", ""}, Block{"Select", "End", "Select"}, Block{"With", "End", "With"},
};
constexpr const Block* IfBlock = Blocks.data();
constexpr const Block* SelectBlock = &Blocks[4];

std::string EndOf(const Block& block) {
  return std::string(block.Closes) + (block.ClosesToo.empty() ? "" : " " + std::string(block.ClosesToo));
}

const Block* OpenedBy(Statement statement) {
  const auto found = std::ranges::find_if(Blocks, [&](const Block& b) { return Is(WordIn(statement, 0), b.Opens); });
  return found == Blocks.end() ? nullptr : &*found;
}

const Block* ClosedBy(Statement statement) {
  if (Is(WordIn(statement, 0), "EndIf")) return IfBlock;
  const auto found = std::ranges::find_if(Blocks, [&](const Block& b) {
    return Is(WordIn(statement, 0), b.Closes) && (b.ClosesToo.empty() || Is(WordIn(statement, 1), b.ClosesToo));
  });
  return found == Blocks.end() ? nullptr : &*found;
}

// Where a word stands that is no member of something; the size of the statement when it does not.
std::size_t PlaceOf(std::string_view keyword, Statement statement) {
  for (std::size_t i = 0; i < statement.size(); ++i) {
    const bool isMember = i > 0 && (statement[i - 1].Text == "." || statement[i - 1].Text == "!");
    if (statement[i].Kind == TokenKind::Name && !isMember && Is(statement[i].Text, keyword)) return i;
  }
  return statement.size();
}

Statement Behind(Statement statement, std::size_t at) { return statement.subspan(std::min(at + 1, statement.size())); }

// Cuts the first statement off the line.
Statement TakeStatement(Statement& line) {
  const auto colon = std::ranges::find(line, ":", &vbtext::Token::Text);
  const Statement first(line.begin(), colon);
  line = Behind(line, first.size());
  return first;
}

class Reader {
 public:
  explicit Reader(const Section& procedure) : procedure_(procedure) {}

  std::optional<BlockFault> Read(const std::vector<vbtext::Line>& lines) {
    vbtext::LogicalLines all(lines, procedure_.Body);
    for (vbtext::LogicalLine line; isCertain_ && !fault_ && all.Next(line);) {
      line_ = line.Lines.First;
      if (vbtext::IsDirective(line.Tokens))
        ReadDirective(line.Tokens);
      else
        ReadLine(line.Tokens);
    }
    return isCertain_ ? fault_ : std::nullopt;
  }

 private:
  struct Open {
    const Block* Kind;
    std::size_t Line;

    bool operator==(const Open& other) const { return Kind == other.Kind; }  // on whatever line
  };
  using Stack = std::vector<Open>;

  struct Branching {
    Stack Before;
    std::optional<Stack> After;  // the first branch
    bool HasElse = false;
  };

  // Each branch goes on from where the #If stands, and all must come to the same.
  void ReadDirective(Statement line) {
    constexpr std::size_t deepest = 64;  // no deeper stack is copied
    const std::string_view word = WordIn(line, 1);
    if (Is(word, "If")) {
      if (open_.size() + branchings_.size() > deepest) isCertain_ = false;
      branchings_.push_back({open_, std::nullopt});
      return;
    }
    if (branchings_.empty()) {  // the procedure begins in a branch
      if (!open_.empty()) isCertain_ = false;
      return;
    }
    Branching& branching = branchings_.back();
    EndBranch(branching, open_);
    if (Is(word, "Else") || Is(word, "ElseIf")) {
      branching.HasElse = branching.HasElse || Is(word, "Else");
      open_ = branching.Before;
      return;
    }
    if (!branching.HasElse) EndBranch(branching, branching.Before);
    open_ = std::move(*branching.After);
    branchings_.pop_back();
  }

  void EndBranch(Branching& branching, const Stack& stack) {
    if (!branching.After)
      branching.After = stack;
    else if (*branching.After != stack)
      isCertain_ = false;
  }

  void ReadLine(Statement line) {
    while (!line.empty() && line.back().Kind == TokenKind::Comment) line = line.first(line.size() - 1);  // one a line
    if (!line.empty() && line.front().Kind == TokenKind::Number) line = line.subspan(1);
    while (!line.empty() && !fault_) ReadStatement(TakeStatement(line), line);
  }

  // `rest`: of the line, which a single-line If takes.
  void ReadStatement(Statement statement, Statement& rest) {
    const std::string_view word = WordIn(statement, 0);
    if (Is(word, "If")) {
      ReadIf(statement, rest);
    } else if (Is(word, "ElseIf")) {
      ExpectWithin(IfBlock, word);
      ReadStatement(Behind(statement, PlaceOf("Then", statement)), rest);
    } else if (Is(word, "Else")) {
      ExpectWithin(IfBlock, word);
      if (Is(WordIn(statement, 1), "If")) isCertain_ = false;  // two words or one
      ReadStatement(statement.subspan(1), rest);
    } else if (Is(word, "Case")) {
      ExpectWithin(SelectBlock, word);
    } else {
      ReadOther(statement);
    }
  }

  void ReadOther(Statement statement) {
    if (const Block* closed = ClosedBy(statement)) {
      const auto more = Is(closed->Closes, "Next") ? std::ranges::count(statement, ",", &vbtext::Token::Text) : 0;
      for (auto i = 0 * more; i <= more && !fault_; ++i) Close(*closed);
    } else if (Is(WordIn(statement, 0), "End")) {
      EndProcedure(WordIn(statement, 1));
    } else if (const Block* opened = OpenedBy(statement)) {
      open_.push_back({opened, line_});
    }
  }

  void ReadIf(Statement statement, Statement& rest) {
    const std::size_t then = PlaceOf("Then", statement);
    const bool isBlock = then + 1 == statement.size();
    if (then == statement.size() || (isBlock && !rest.empty())) {
      isCertain_ = false;
    } else if (isBlock) {
      open_.push_back({IfBlock, line_});
    } else {
      const Statement behind = Behind(statement, then);
      ReadSingleLine({behind.data(), rest.data() + rest.size()});
      rest = {};
    }
  }

  // Statements behind "Then", to the end of the line: what they open they close.
  void ReadSingleLine(Statement line) {
    const Stack before = open_;
    while (!line.empty() && !fault_ && isCertain_) {
      Statement statement = TakeStatement(line);
      while (!statement.empty()) {
        const std::size_t cut = std::min(PlaceOf("Then", statement), PlaceOf("Else", statement));
        const Statement part = statement.first(cut);
        statement = Behind(statement, cut);
        if (ClosedBy(part) == IfBlock) isCertain_ = false;
        if (!Is(WordIn(part, 0), "If") && !Is(WordIn(part, 0), "Case")) ReadOther(part);
      }
    }
    if (open_ != before) isCertain_ = false;
  }

  void ExpectWithin(const Block* block, std::string_view word) {
    if (open_.empty() || open_.back().Kind != block) Miss(word, *block);
  }

  void Close(const Block& block) {
    if (open_.empty() || open_.back().Kind != &block)
      Miss(EndOf(block), block);
    else
      open_.pop_back();
  }

  // A word stands where its block is not the one that is open.
  void Miss(std::string_view word, const Block& block) {
    std::string message = "\"" + std::string(word) + "\" without \"" + std::string(block.Opens) + "\"";
    const bool isOpen = std::ranges::find(open_, &block, &Open::Kind) != open_.end();
    if (isOpen) {
      message = "\"" + std::string(word) + "\" before \"" + EndOf(*open_.back().Kind) + "\" of line " +
                std::to_string(open_.back().Line + 1);
    }
    fault_ = {line_, std::move(message)};
  }

  void EndProcedure(std::string_view word) {
    const bool isProperty = !Is(procedure_.Word, "Sub") && !Is(procedure_.Word, "Function");
    const std::string_view expected = isProperty ? "Property" : procedure_.Word;
    if (!Is(word, "Sub") && !Is(word, "Function") && !Is(word, "Property")) return;
    if (!branchings_.empty()) {
      isCertain_ = false;
    } else if (!open_.empty()) {
      const Open& open = open_.back();
      fault_ = {open.Line, "\"" + std::string(open.Kind->Opens) + "\" without \"" + EndOf(*open.Kind) + "\""};
    } else if (!Is(word, expected)) {
      fault_ = {line_, "\"End " + std::string(word) + "\" where \"End " + std::string(expected) + "\" is expected"};
    }
  }

  const Section& procedure_;
  std::size_t line_ = 0;
  Stack open_;  // the innermost last
  std::vector<Branching> branchings_;
  bool isCertain_ = true;
  std::optional<BlockFault> fault_;
};

}  // namespace

std::optional<BlockFault> BlockFaultIn(const std::vector<vbtext::Line>& lines, const Section& procedure) {
  return Reader(procedure).Read(lines);
}

}  // namespace formwizard::lint
