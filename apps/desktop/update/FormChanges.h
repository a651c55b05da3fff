// What an update changes in a form, as the user reads it.
#pragma once

#include "apps/desktop/kept/UpdateChoices.h"
#include "system/CodePage.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

enum class ChangeKind : std::uint8_t { Conflict, New, Changed, Gone, Yours };

struct FormChange {
  ChangeKind Kind;
  QString Name;                 // "txtNotes", "SyncObjectToScreen"
  QStringList Properties;       // of a control, that change
  int Lines = 0;                // of a procedure, that differ
  std::string Control;          // on the form, in its bytes; empty for none
  int Before = -1, After = -1;  // lines of the two files, counted from 0; -1 where it does not stand
  std::string Conflict;         // its name
};

struct FormChanges {
  std::vector<FormChange> ToDecide, Controls, Procedures, Yours;
};

// Whether a control only makes room for others.
bool MakesRoom(const FormChange& change);

// The controls that only make room for others come last.
FormChanges ChangesIn(const UpdateChoices& update, const system::CodePage& codePage);

}  // namespace formwizard::apps::desktop
