// The pictures that a form's companion file holds: of the form itself, picture boxes, images, buttons,
// lists of pictures, and the icon.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QImage>
#include <QPainter>
#include <QRect>

#include <map>
#include <string>
#include <utility>

namespace formwizard::apps::desktop {

class StoredPictures {
 public:
  StoredPictures() = default;
  // Reads those of the form and all controls on it, which stay where they are as long as these pictures are asked for.
  // What the toolkit cannot read, such as a metafile, is passed over.
  explicit StoredPictures(const adapters::vb6files::FormNode& form) { Read(form); }

  // The list of pictures of that name; null for none.
  const adapters::vb6files::FormNode* ListNamed(const std::string& name) const;
  // Null for none.
  const QImage* Find(const adapters::vb6files::FormNode& node, const std::string& property) const;

 private:
  void Read(const adapters::vb6files::FormNode& node);

  std::map<std::string, const adapters::vb6files::FormNode*> lists_;
  std::map<std::pair<const adapters::vb6files::FormNode*, std::string>, QImage> pictures_;
};

// The picture on a form or on a control of the environment itself, whose inside `place` is, and those of a toolbar.
void DrawStoredPicture(QPainter& painter, const adapters::vb6files::FormNode& node, const QRect& place,
                       const StoredPictures& pictures);

}  // namespace formwizard::apps::desktop
