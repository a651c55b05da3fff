// The picture of a form as a file.
#pragma once

#include <string>

namespace formwizard::apps::desktop {

// Reads a form file, with its .frx, and writes its picture, PNG or SVG by the ending of its name. Needs a
// QGuiApplication but no display. common::UsageError for another ending, support::InputError for a form that cannot be
// read, support::SaveError when the picture cannot be written.
void RenderToFile(const std::string& frmPath, const std::string& picturePath, int codePage);

}  // namespace formwizard::apps::desktop
