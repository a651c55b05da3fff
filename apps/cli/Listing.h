// A list of rows for people, for scripts and for programs.
#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace formwizard::apps::cli {

using ListedRow = nlohmann::ordered_json;  // an object

enum class ListingForm : std::uint8_t {
  Separated,  // a line a row, with tabs between the cells and no headings
  Aligned,    // headings, and cells below each other: for a terminal
  Json,       // an array of objects
};

// As the caller asks for it, or standard output calls for.
ListingForm FormOfListing(bool json);

// Writes rows as they come; when they are aligned, the first ones wait until it is known how wide the columns are.
class Listing {
 public:
  // `headings` are those of the cells, in capitals. `out` must outlive this object.
  Listing(std::ostream& out, ListingForm form, std::vector<std::string> headings);

  // As many cells as headings, as UTF-8; what a terminal would obey is escaped. JSON shows what `row` gives instead,
  // which is called for nothing else.
  // When aligned, the first cell stands `depth` steps further in.
  void Add(std::vector<std::string> cells, const std::function<ListedRow()>& row, std::size_t depth = 0);
  // Once, behind the last row: only then it is whole.
  void End();

 private:
  void Print(const std::vector<std::string>& cells);
  void PrintWaiting();

  std::ostream& out_;
  ListingForm form_;
  std::vector<std::vector<std::string>> waiting_;  // the headings and the first rows
  std::vector<std::size_t> widths_;                // of the columns, in characters
  bool isMeasured_ = false, isFirst_ = true;
};

}  // namespace formwizard::apps::cli
