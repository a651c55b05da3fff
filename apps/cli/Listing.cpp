#include "apps/cli/Listing.h"

#include "apps/common/Platform.h"
#include "support/Messages.h"

#include <algorithm>
#include <utility>

namespace formwizard::apps::cli {
namespace {

// Rows that tell how wide the columns are; later ones only widen them for themselves and those behind them.
constexpr std::size_t MeasuredRows = 500;
constexpr std::size_t Gap = 2;  // blanks between columns, and of a step

std::size_t CharactersIn(const std::string& utf8) {
  const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; };
  return static_cast<std::size_t>(std::ranges::count_if(utf8, begins));
}

}  // namespace

ListingForm FormOfListing(bool json) {
  if (json) return ListingForm::Json;
  return common::IsTerminal(common::StandardStream::Output) ? ListingForm::Aligned : ListingForm::Separated;
}

Listing::Listing(std::ostream& out, ListingForm form, std::vector<std::string> headings)
    : out_(out), form_(form), widths_(headings.size()) {
  if (form_ == ListingForm::Json) out_ << '[';
  if (form_ == ListingForm::Aligned) Add(std::move(headings), nullptr);
}

void Listing::Add(std::vector<std::string> cells, const std::function<ListedRow()>& row, std::size_t depth) {
  if (form_ == ListingForm::Json) {
    out_ << (isFirst_ ? "\n  " : ",\n  ") << row().dump(-1, ' ', false, ListedRow::error_handler_t::replace);
    isFirst_ = false;
    return;
  }
  for (std::string& cell : cells) cell = support::Escaped(cell);
  if (form_ == ListingForm::Separated) return Print(cells);
  cells.front().insert(0, depth * Gap, ' ');
  for (std::size_t i = 0; i < cells.size(); ++i) widths_[i] = std::max(widths_[i], CharactersIn(cells[i]));
  if (isMeasured_) return Print(cells);
  waiting_.push_back(std::move(cells));
  if (waiting_.size() > MeasuredRows) PrintWaiting();
}

void Listing::Print(const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    line += cells[i];
    if (i + 1 == cells.size()) break;
    form_ == ListingForm::Separated ? line += '\t' : line.append(widths_[i] - CharactersIn(cells[i]) + Gap, ' ');
  }
  if (form_ == ListingForm::Aligned) line.erase(line.find_last_not_of(' ') + 1);
  out_ << line << '\n';
}

void Listing::PrintWaiting() {
  isMeasured_ = true;
  for (const std::vector<std::string>& cells : std::exchange(waiting_, {})) Print(cells);
}

void Listing::End() {
  if (form_ == ListingForm::Json) out_ << (isFirst_ ? "]\n" : "\n]\n");
  PrintWaiting();
}

}  // namespace formwizard::apps::cli
