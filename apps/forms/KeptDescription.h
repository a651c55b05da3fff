// The description of a form that is kept: what was asked for, with everything that was in effect.
#pragma once

#include "apps/forms/FormDescription.h"
#include "apps/forms/Workshop.h"
#include "kept/FormTexts.h"

#include <string>

namespace formwizard::apps::forms {

// Of the form that the workshop has made last, as `asked` says.
struct MadeBy {
  std::string Program;  // its version
  int CodePage;
  bool IsReused;  // see MadeForm
};
FormDescription KeptDescription(const FormDescription& asked, const kept::FormTexts& form, Workshop& workshop,
                                const MadeBy& by);

}  // namespace formwizard::apps::forms
