#include "merge/TabOrder.h"

#include "merge/Sequence.h"
#include "runtime/Conversions.h"
#include "vbtext/Controls.h"
#include "vbtext/Values.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace formwizard::merge {
namespace {

using vbtext::Control;
using vbtext::HeaderProperty;

const HeaderProperty* TabIndexOf(const Control& control) {
  const HeaderProperty* index = control.Node->Find("TabIndex");
  return index && runtime::IsNumeric(index->Value) ? index : nullptr;
}

double NumberOf(const Control& control) { return runtime::ToNumber(TabIndexOf(control)->Value); }

// The controls of a side by their places in the merged form, in tab order.
Row RowOf(const std::vector<Control>& merged, const vbtext::Document& document) {
  const std::vector<Control> side = ControlsOf(*document.Root);
  const std::vector<std::size_t> places = MatchControls(merged, side);
  std::vector<std::pair<double, std::uint32_t>> stops;
  for (std::size_t i = 0; i < merged.size(); ++i) {
    if (places[i] == vbtext::None || !TabIndexOf(merged[i]) || !TabIndexOf(side[places[i]])) continue;
    stops.emplace_back(NumberOf(side[places[i]]), static_cast<std::uint32_t>(i));
  }
  std::ranges::stable_sort(stops, {}, &std::pair<double, std::uint32_t>::first);
  Row row;
  for (const auto& stop : stops) row.push_back(stop.second);
  return row;
}

}  // namespace

std::optional<std::string> WithTabOrder(std::string_view merged, const vbtext::Document& document,
                                        const Documents& documents, Choice choice) {
  const std::vector<Control> controls = ControlsOf(*document.Root);
  const Row mine = RowOf(controls, documents.Mine), theirs = RowOf(controls, documents.Theirs);
  std::optional<Row> order = MergedOrder(RowOf(controls, documents.Base), mine, theirs);
  // As if the other side had left its order.
  if (!order && choice != Choice::Marks) order = MergedOrder(choice == Choice::Mine ? theirs : mine, mine, theirs);
  if (!order) return std::nullopt;
  const bool isInOrder = std::ranges::is_sorted(
      *order, [](double a, double b) { return a <= b; }, [&](std::uint32_t i) { return NumberOf(controls[i]); });
  if (isInOrder) return std::string(merged);

  std::vector<std::pair<std::size_t, std::string>> numbers;  // by line
  for (std::size_t i = 0; i < order->size(); ++i) {
    numbers.emplace_back(TabIndexOf(controls[(*order)[i]])->Lines.First, std::to_string(i));
  }
  std::ranges::sort(numbers);
  std::string text;
  std::size_t from = 0;
  for (const auto& [line, number] : numbers) {
    const std::string_view whole = document.Lines[line].Text;
    const std::size_t value = whole.find_first_not_of(" \t", whole.find('=') + 1);
    const std::size_t at = static_cast<std::size_t>(whole.data() - merged.data());
    text.append(merged.substr(from, at + value - from)).append(number);
    from = at + whole.size();
  }
  return text.append(merged.substr(from));
}

}  // namespace formwizard::merge
