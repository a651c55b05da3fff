#include "model/FormModel.h"

namespace formwizard::model {
namespace {

constexpr Int16 GrowBy(10);

}  // namespace

void FormModel::ResetFieldRecords() {
  Fields = OneBased<FieldRecord>(GrowBy);
  firstPossiblyFree_ = Int16(1);
}

Int16 FormModel::AllocateFieldRecord() {
  // A record in use is never freed one by one, so the search goes on where the last one ended.
  while (firstPossiblyFree_ <= Fields.UpperBound()) {
    if (Fields[firstPossiblyFree_].FieldKind == kind::Free) return firstPossiblyFree_;
    firstPossiblyFree_ += Int16(1);
  }
  Fields.ReDimPreserve(Fields.UpperBound() + GrowBy);
  return firstPossiblyFree_;
}

}  // namespace formwizard::model
