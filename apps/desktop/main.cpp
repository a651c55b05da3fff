#include "apps/desktop/FormPicture.h"
#include "apps/desktop/MainWindow.h"
#include "support/Failures.h"

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

using namespace formwizard;
using namespace formwizard::apps::desktop;

namespace {

enum ExitStatus : int { Done = 0, WrongUsage = 2, InvalidInput = 3, NotWritten = 4 };

// Drawing a form, and saying what the program can do, need no display.
bool NeedsNoDisplay(int argc, char** argv) {
  constexpr std::array<std::string_view, 5> options{"--help", "-h", "--version", "-v", "--render"};
  return std::any_of(argv + 1, argv + argc, [&](const char* argument) {
    return std::ranges::find(options, std::string_view(argument).substr(0, std::string_view(argument).find('='))) !=
           options.end();
  });
}

int Complain(const QString& message, int status) {
  std::cerr << "ostrel-form-wizard-desktop: " << message.toStdString() << '\n';
  return status;
}

int Render(const QString& form, const QString& picture, int codePage) {
  try {
    RenderToFile(form.toStdString(), picture.toStdString(), codePage);
    return Done;
  } catch (const support::InputError& error) {
    return Complain(error.what(), InvalidInput);
  } catch (const support::SaveError& error) {
    return Complain(error.what(), NotWritten);
  }
}

void AddOptions(QCommandLineParser& parser) {
  parser.setApplicationDescription(
      "Shows a Visual Basic 6 project and creates complete forms in it for the persistent classes of an Ostrel "
      "system.\n\nExit status: 0 done, 2 wrong usage, 3 an input is missing or invalid, 4 a file could not be "
      "written.");
  parser.addOption({{"h", "help"}, "Shows this help."});
  parser.addVersionOption();
  parser.addOptions({{"dictionary", "The class dictionary.", "FILE"},
                     {"profile",
                      "The settings file (default: outility.ini beside the program, else in the user's "
                      "configuration folder).",
                      "FILE"},
                     {"language", "Three-letter language of the texts, such as DEU.", "ABC"},
                     {"code-page", "The Windows code page of the project's files (default: 1252).", "N", "1252"},
                     {"toolbox", "Control libraries that the project does not refer to yet.", "FILE"},
                     {"render", "Draw the form file into a picture (PNG) and end; needs no display.", "FORM.frm"}});
  parser.addPositionalArgument("file", "The project to open (.vbp); with --render, the picture to write.", "[FILE]");
}

}  // namespace

// A std::logic_error, a mistake of the program itself, ends it.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  if (NeedsNoDisplay(argc, argv)) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName("ostrel-form-wizard-desktop");
  QApplication::setApplicationVersion(FORMWIZARD_VERSION);
  QApplication::setDesktopFileName("ostrel-form-wizard-desktop");
  QCommandLineParser parser;
  AddOptions(parser);
  if (!parser.parse(QApplication::arguments())) return Complain(parser.errorText(), WrongUsage);
  if (parser.isSet("help")) parser.showHelp(Done);
  if (parser.isSet("version")) parser.showVersion();
  bool isNumber = false;
  const int codePage = parser.value("code-page").toInt(&isNumber);
  if (!isNumber) return Complain("--code-page takes a number such as 1252", WrongUsage);

  const QStringList files = parser.positionalArguments();
  if (parser.isSet("render")) {
    if (files.size() != 1) return Complain("--render takes a form and a picture: FORM.frm PICTURE.png", WrongUsage);
    return Render(parser.value("render"), files.front(), codePage);
  }
  if (files.size() > 1) return Complain("one project can be open at a time", WrongUsage);

  MainWindow window({parser.value("profile").toStdString(), parser.value("language").toStdString(),
                     parser.value("toolbox").toStdString(), codePage});
  window.show();
  if (!files.isEmpty()) window.OpenProject(files.front());
  if (parser.isSet("dictionary")) window.OpenDictionary(parser.value("dictionary"));
  return QApplication::exec();
}
