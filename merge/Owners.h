// Whose line of a property stands in the result, and which controls are untouched.
#pragma once

#include "merge/Documents.h"
#include "merge/Options.h"
#include "merge/Properties.h"
#include "merge/Siblings.h"
#include "vbtext/Companion.h"

namespace formwizard::merge {

enum class Owner { Mine, Theirs, MineWithNote, Nobody };

// Offsets into a companion file say nothing without it, and it comes whole from one side.
enum class Whose { Mine, Theirs, Both };

class Owners {
 public:
  // All three have a tree. The documents and options must outlive this object.
  Owners(const Documents& documents, const Options& options);

  Whose References() const { return references_; }
  Owner Of(const PropertyTrio& property, const Trio& node) const;
  // Of a control that only one side still has, and that the base had before.
  bool IsUntouched(const Trio& node) const;
  // Of one that both sides have added.
  bool IsAddedAlike(const Trio& node) const;

 private:
  Owner OfReference(const PropertyTrio& property) const;

  const Options& options_;
  Whose references_;
  vbtext::Companion base_, mine_, theirs_;  // without their files
};

// Whether a control or one in it refers to a companion file.
bool HoldsReference(const vbtext::HeaderNode& node);

}  // namespace formwizard::merge
