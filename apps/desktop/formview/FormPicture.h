// Draws a form of a project to scale, 15 twips a pixel, in the classic look of the system.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QImage>
#include <QPainter>
#include <QSize>

namespace formwizard::apps::desktop {

constexpr int LargestSide = 16384;  // pixels

class StoredPictures;

struct PictureOptions {
  double Scale = 1;  // device pixels a pixel at 96 dots per inch
  bool ShowTabOrder = false;
  bool ShowInvisible = false;                // also what is invisible at run time, such as dialogs
  bool OutlineLabels = false;                // those that have no border
  const StoredPictures* Pictures = nullptr;  // of the form; null: they are read anew
};

// With the window's frame, title bar and menu bar. A form too large for memory is as if drawn at a smaller scale.
QSize PictureSize(const adapters::vb6files::FormNode& form, double scale);

// At the painter's origin.
void DrawForm(QPainter& painter, const adapters::vb6files::FormNode& form, const PictureOptions& options);

// `scale` is the device pixel ratio of the image.
QImage PictureOf(const adapters::vb6files::FormNode& form, double scale, bool showTabOrder);

}  // namespace formwizard::apps::desktop
