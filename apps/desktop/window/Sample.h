// A copy of the sample project, with a dictionary and a toolbox, to try the program with.
#pragma once

#include <QString>

namespace formwizard::apps::desktop {

struct Sample {
  QString Project, Dictionary, Toolbox;  // paths
};

// Makes the folder and fills it. support::SaveError, with the file that could not be written.
Sample CopySample(const QString& folder);

}  // namespace formwizard::apps::desktop
