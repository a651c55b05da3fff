// The picture of a form as a file.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QMimeData>

#include <string>

namespace formwizard::apps::desktop {

// PNG or SVG by the ending of the name. Fails as below.
void SavePicture(const adapters::vb6files::FormNode& form, const std::string& path);

// Both, for the clipboard.
QMimeData* PictureToCopy(const adapters::vb6files::FormNode& form);

// Reads a form file, with its .frx, and writes its picture, PNG or SVG by the ending of its name. Needs a
// QGuiApplication but no display. common::UsageError for another ending, support::InputError for a form that cannot be
// read, support::SaveError when the picture cannot be written.
void RenderToFile(const std::string& frmPath, const std::string& picturePath, int codePage);

}  // namespace formwizard::apps::desktop
