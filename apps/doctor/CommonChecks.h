// What is looked at on every system.
#pragma once

#include "apps/doctor/Check.h"

#include <string>

namespace formwizard::apps::doctor {

// Whether the settings in this profile can be read and written; `program` is whose they are. Nothing stays changed.
Finding SettingsIn(const std::string& profile, const std::string& program);

// Whether the satellites in a folder, which ends in its separator, have all texts.
Finding LanguagesIn(const std::string& folder);

// Of the command line itself.
Finding OwnSettings();
Finding OwnLanguages();

}  // namespace formwizard::apps::doctor
