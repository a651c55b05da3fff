// Which procedures a code has, and of which objects.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace formwizard::apps::desktop {

struct CodeProcedure {
  QString Object;   // whose event it handles; empty for a procedure of its own
  QString Event;    // "Click"; its name where it handles none
  QString Name;     // "cmdSave_Click"
  int First, Last;  // lines, counted from 0
};

struct CodeOutline {
  std::vector<CodeProcedure> Procedures;  // in the order of the code
  std::vector<int> Ends;                  // the lines below which the next procedure, or what belongs to it, begins
};

// `objects` can have events, besides those that the code declares so itself. Names are compared without regard to case.
CodeOutline OutlineOf(QStringView code, const QStringList& objects);

}  // namespace formwizard::apps::desktop
