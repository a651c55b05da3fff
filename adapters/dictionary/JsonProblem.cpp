#include "adapters/dictionary/JsonProblem.h"

#include "support/Failures.h"

#include <algorithm>
#include <array>

namespace formwizard::adapters::dictionary {
namespace {

// By what the parser says: a phrase of it, what we say, and whether the place is that of the last character instead of
// the beginning of the value.
struct Row {
  std::string_view Parser, Ours;
  bool IsWithin = false;
};
constexpr std::array Faults{
    Row{"missing closing quote", "this text has no quote at its end"},
    Row{"(LF) must be", "this text has no quote at the end of its line"},
    Row{"(CR) must be", "this text has no quote at the end of its line"},
    Row{"must be escaped", "a control character stands in this text; write it as \\u and four digits", true},
    Row{"ill-formed UTF-8", "this is no UTF-8; save the file as UTF-8", true},
    Row{"after backslash", "behind a \\ stands one of \" \\ / b f n r t u; write \\\\ for a backslash", true},
    Row{"hex digits", "behind \\u stand four hexadecimal digits", true},
    Row{"surrogate", "behind \\u stands half a character; write it with its other half, or as itself", true},
    Row{"invalid number", "this number is not written as JSON has them, such as -1.5", true},
};
constexpr std::array Expectations{
    Row{"; expected end of input", "nothing more"}, Row{"parsing object key", "a member's name in double quotes"},
    Row{"parsing object separator", "a colon"},     Row{"parsing object", "a comma or }"},
    Row{"parsing array", "a comma or ]"},           Row{"parsing value", "a value"},
};

template <std::size_t Size>
const Row* Find(const std::array<Row, Size>& rows, std::string_view said) {
  const auto found = std::ranges::find_if(rows, [&](const Row& row) { return said.find(row.Parser) != said.npos; });
  return found == rows.end() ? nullptr : &*found;
}

std::string Shown(const std::string& token) {
  constexpr std::size_t most = 40;  // bytes
  return token.size() > most ? token.substr(0, most) + "..." : token;
}

// Of a merge that left both sides in the file: "<<<<<<<", "=======", ">>>>>>>" at the beginning of a line.
bool IsMark(std::string_view token, const Place& place) {
  return place.Column == 1 && !token.empty() && std::string_view("<=>|").find(token.front()) != std::string_view::npos;
}

std::string ProblemOf(const std::string& token, const Place& place, std::string_view said, const Row* fault) {
  if (IsMark(token, place)) {
    return "a mark that a merge has left; choose one of the two sides, and take the marks out";
  }
  if (fault) return std::string(fault->Ours);
  const Row* const expected = Find(Expectations, said);
  if (!expected) return "";
  const bool isAtEnd = said.find("unexpected end of input") != said.npos;
  const std::string found = isAtEnd ? "the end" : Shown(token);
  return "expected " + std::string(expected->Ours) + (found.empty() ? "" : ", found " + found);
}

}  // namespace

void FailNoJson(JsonInput& input, const std::string& source, const std::exception& error, std::string_view meant) {
  const std::string_view said = error.what();
  const Row* const fault = Find(Faults, said);
  const std::string token = input.BeginningOfValue();  // nothing where a number was read on into what is wrong
  const Place place = token.empty() || (fault && fault->IsWithin) ? input.Here() : input.BeginOfValue();
  const std::string problem = ProblemOf(token, place, said, fault);
  throw support::InputError(source + ":" + std::to_string(place.Line) + ":" + std::to_string(place.Column) +
                            ": this is not valid JSON" + (problem.empty() ? "" : ": " + problem) + "; " +
                            std::string(meant));
}

}  // namespace formwizard::adapters::dictionary
