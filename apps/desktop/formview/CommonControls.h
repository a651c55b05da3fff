// How the controls of the common controls' libraries and grids look, with what the form's file has of them.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QPainter>
#include <QRect>

#include <vector>

namespace formwizard::apps::desktop {

// A button of a toolbar, counted from 1.
struct ToolbarButton {
  int Number;
  QRect Place;
};
// Those that are seen, without separators and placeholders.
std::vector<ToolbarButton> ToolbarButtonsOf(const adapters::vb6files::FormNode& control, const QRect& place);

void DrawToolbar(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);
void DrawStatusBar(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);
void DrawProgressBar(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);
void DrawUpDown(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);
void DrawSlider(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);
// With its fixed rows and columns.
void DrawGrid(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);

}  // namespace formwizard::apps::desktop
