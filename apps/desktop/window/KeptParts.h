// The parts of the window that the commands on kept forms work with.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/code/CodePane.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/Files.h"
#include "apps/desktop/window/FormPage.h"
#include "apps/desktop/window/Memory.h"
#include "apps/desktop/window/Panes.h"
#include "apps/desktop/window/ProjectTree.h"
#include "apps/desktop/window/StatusLine.h"

#include <QWidget>

namespace formwizard::apps::desktop {

// All must outlive the commands.
struct KeptParts {
  QWidget& Window;
  const Texts& Words;
  Actions& Commands;
  Environment& Project;
  Files& Opened;
  Memory& Remembered;
  ProjectTree& Tree;
  FormPage& Page;
  MessageBar& Notice;  // above all pages
  FormView& Form;
  CodePane& Code;
  Panes& Around;
  StatusLine& Status;
};

}  // namespace formwizard::apps::desktop
