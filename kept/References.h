// The records of .frx files while the forms that refer to them are merged.
#pragma once

#include "kept/FormTexts.h"
#include "vbtext/Companion.h"

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::kept {

// Puts into the place of each reference a name for what it refers to, which is the same wherever the record is the
// same, so that forms with several .frx files can be merged as text. A reference to what is not there stands for
// itself.
class References {
 public:
  // The sides must outlive this object.
  explicit References(const Sides& sides);

  // Those that refer to nothing are the texts themselves.
  std::string_view Base() const { return base_; }
  std::string_view Mine() const { return mine_; }
  std::string_view Theirs() const { return theirs_; }

  // The form that a text with these names is, with a .frx of all that it refers to. `stem` is the name of the file
  // without ".frm". Where the references are mine's, in its order, its .frx stays as it is.
  FormTexts Resolved(std::string text, std::string_view stem) const;
  // The text as a person reads it.
  std::string Shown(std::string_view text) const;

 private:
  struct Record {
    std::string Bytes;
    bool IsText;       // has the "$" in front
    std::string Lost;  // the reference as it stands, when there is no such record
  };

  std::string_view Named(const FormTexts& form);
  std::string NameOf(std::string_view value, const vbtext::Companion& companion);
  // Calls `take` for each name in the text with its record and place, and with what stands before it.
  void ForEach(std::string_view text, auto&& take) const;
  std::vector<std::size_t> RecordsIn(std::string_view text) const;

  std::string mark_;  // stands in none of the texts; begins and ends a name
  std::vector<Record> records_;
  std::map<std::string, std::size_t> numbers_;  // of records, by what they are
  std::vector<std::string> valuesOfMine_;       // in the order of the file
  const FormTexts& originalMine_;
  std::deque<std::string> texts_;  // that have names
  std::string_view base_, mine_, theirs_;
};

}  // namespace formwizard::kept
