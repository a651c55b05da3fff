#include "vbtext/Header.h"

#include "runtime/Conversions.h"
#include "vbtext/Tokens.h"

#include <algorithm>

namespace formwizard::vbtext {
namespace {

using runtime::Trimmed;

class Reader {
 public:
  Reader(const std::vector<Line>& lines, std::size_t at) : lines_(lines), at_(at) {}

  // From the line with "Begin" to the one with its "End".
  HeaderNode Node(int depth) {
    CheckDepth(depth);
    HeaderNode node{WordOf(Text(), 1), WordOf(Text(), 2), {at_, 0}, {}, {}};
    for (Next("\"End\""); !BeginsWith(Text(), "End"); Next("\"End\"")) {
      if (BeginsWith(Text(), "Begin")) {
        if (WordOf(Text(), 2).empty()) throw Fault{at_, "a class and a name behind \"Begin\""};
        node.Children.push_back(Node(depth + 1));
      } else if (!Trimmed(Text()).empty()) {
        node.Properties.push_back(Property(depth));
      }
    }
    node.Lines.Behind = at_ + 1;
    return node;
  }

 private:
  std::string_view Text() const { return lines_[at_].Text; }

  void Next(std::string_view expected) {
    if (++at_ == lines_.size()) throw Fault{at_, std::string(expected)};
  }

  void CheckDepth(int depth) const {
    if (depth > DeepestNesting) throw Fault{at_, "at most " + std::to_string(DeepestNesting) + " levels of nesting"};
  }

  HeaderProperty Property(int depth) {
    if (BeginsWith(Text(), "BeginProperty")) return Group(depth + 1);
    const std::size_t equals = Text().find('=');
    if (equals == std::string_view::npos) throw Fault{at_, "a property as \"Name = value\""};
    return {Trimmed(Text().substr(0, equals)), WithoutComment(Trimmed(Text().substr(equals + 1))), {at_, at_ + 1}, {}};
  }

  HeaderProperty Group(int depth) {
    CheckDepth(depth);
    HeaderProperty group{WordOf(Text(), 1), WordOf(Text(), 2), {at_, 0}, {}, true};
    for (Next("\"EndProperty\""); !BeginsWith(Text(), "EndProperty"); Next("\"EndProperty\"")) {
      if (!Trimmed(Text()).empty()) group.Members.push_back(Property(depth));
    }
    group.Lines.Behind = at_ + 1;
    return group;
  }

  static std::string_view WithoutComment(std::string_view value) {
    std::size_t from = value.starts_with("$\"") ? 1 : 0;
    if (value.substr(from).starts_with('"')) {
      std::size_t end = 0;
      Unquoted(value.substr(from), end);
      from += end;
    }
    return Trimmed(value.substr(0, value.find('\'', from)));
  }

  const std::vector<Line>& lines_;
  std::size_t at_;
};

}  // namespace

const HeaderProperty* HeaderNode::Find(std::string_view property) const {
  const auto found = std::ranges::find_if(
      Properties, [&](const HeaderProperty& p) { return runtime::EqualIgnoringCase(p.Name, property); });
  return found == Properties.end() ? nullptr : &*found;
}

HeaderNode HeaderAt(const std::vector<Line>& lines, std::size_t first) { return Reader(lines, first).Node(1); }

std::string_view WordOf(std::string_view line, int n) {
  for (auto rest = line.begin();; --n) {
    const auto start = std::find_if_not(rest, line.end(), IsBlank);
    rest = std::find_if(start, line.end(), IsBlank);
    if (n == 0) return {start, rest};
  }
}

bool BeginsWith(std::string_view line, std::string_view word) {
  return runtime::EqualIgnoringCase(WordOf(line, 0), word);
}

std::string Unquoted(std::string_view value, std::size_t& end) {
  std::string text;
  for (end = 1; end < value.size(); ++end) {
    if (value[end] == '"' && (end + 1 == value.size() || value[end + 1] != '"')) break;
    if (value[end] == '"') ++end;
    text += value[end];
  }
  end = std::min(end + 1, value.size());
  return text;
}

}  // namespace formwizard::vbtext
