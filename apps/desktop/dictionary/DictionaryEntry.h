// What stands in a row of the dictionary's tree.
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace formwizard::apps::desktop {

enum class EntryKind : std::uint8_t { System, Package, Class, Property, Object, Query, Failure, More };

struct Entry {
  EntryKind Kind = EntryKind::System;
  // Of a class its full name; Type of a system is what it is connected with.
  QString Name = {}, Type = {};
  Entry* Above = nullptr;
  bool IsRead = false;          // what is below it, or being read
  bool HasOnlyFitting = false;  // of what is below it only Fitting are shown
  std::vector<Entry*> All = {}, Fitting = {};
  std::size_t Order = 0;    // in which it was read, among those of its kind
  std::size_t Row = 0;      // in what is shown
  std::size_t Rows = 0;     // how many of those below it are shown, not counting the last row, which tells of the rest
  std::size_t Most = 1000;  // how many may be: a view that lays out many rows takes long
  bool HasRest = false;
  Entry* Rest = nullptr;                         // the last row, once it was needed
  bool AreMembersKnown = false;                  // to the search
  std::size_t FirstMember = 0, MemberCount = 0;  // see MemberNames

  const std::vector<Entry*>& Listed() const { return HasOnlyFitting ? Fitting : All; }
  std::size_t RowCount() const { return Rows + (HasRest ? 1 : 0); }
  Entry& RowAt(std::size_t row) const { return row < Rows ? *Listed()[row] : *Rest; }
};

}  // namespace formwizard::apps::desktop
