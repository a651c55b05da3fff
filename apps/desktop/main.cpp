#include "adapters/satellite/Locales.h"
#include "apps/common/Endings.h"
#include "apps/common/Languages.h"
#include "apps/common/Platform.h"
#include "apps/desktop/basics/Theme.h"
#include "apps/desktop/formview/PictureFile.h"
#include "apps/desktop/window/MainWindow.h"
#include "support/Messages.h"
#include "system/Paths.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

using namespace formwizard;
using namespace formwizard::apps;
using namespace formwizard::apps::desktop;

namespace {

// Drawing a form, and saying what the program can do, need no display.
bool NeedsNoDisplay(int argc, char** argv) {
  constexpr std::array<std::string_view, 5> options{"--help", "-h", "--version", "-v", "--render"};
  return std::any_of(argv + 1, argv + argc, [&](const char* argument) {
    return std::ranges::find(options, std::string_view(argument).substr(0, std::string_view(argument).find('='))) !=
           options.end();
  });
}

// The toolkit ends the program when it finds none.
bool HasDisplay(int argc, char** argv) {
#ifdef Q_OS_LINUX
  constexpr std::array<const char*, 3> variables{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  const bool isNamed = std::any_of(argv + 1, argv + argc, [](const char* argument) {
    return std::string_view(argument).find("-platform") != std::string_view::npos;
  });
  return isNamed || std::ranges::any_of(variables, [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
#else
  static_cast<void>(argc), static_cast<void>(argv);
  return true;
#endif
}

// What no window has caught, such as that there is no memory, is shown, and the program goes on.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (...) {
      const std::string message = common::CurrentFailure("").Message;
      QMessageBox::critical(nullptr, support::ProductName, QString::fromStdString(support::Shortened(message)));
      return true;
    }
  }
};

int Complain(const common::Failure& failure) {
  std::cerr << "ostrel-form-wizard-desktop: " << support::Shown(failure.Message) << '\n';
  return failure.Status;
}

int Misused(const std::string& message) { return Complain({common::WrongUsage, message}); }

int Print(const QString& text) {
  std::cout << text.toStdString();
  common::FlushOutput();
  return common::Done;
}

#ifdef Q_OS_WIN
QStringList ArgumentsLeft(int, char**) { return QApplication::arguments(); }
std::string Given(const QString& text) { return text.toStdString(); }
#else
// What the toolkit has left. Names of files are bytes, which need not be UTF-8: each is a character to the parser.
QStringList ArgumentsLeft(int argc, char** argv) {
  QStringList arguments;
  std::for_each_n(argv, argc, [&](const char* argument) { arguments << QString::fromLatin1(argument); });
  return arguments;
}
std::string Given(const QString& text) { return text.toLatin1().toStdString(); }
#endif

void AddOptions(QCommandLineParser& parser) {
  parser.setApplicationDescription(
      "Shows a Visual Basic 6 project and creates complete forms in it for the persistent classes of an Ostrel "
      "system.\n\nExit status: 0 done, 2 wrong usage, 3 an input is missing or invalid, 4 a file could not be "
      "written.");
  parser.addOption({{"h", "help"}, "Shows this help."});
  parser.addVersionOption();
  parser.addOptions(
      {{"dictionary", "The class dictionary.", "FILE"},
       {"profile",
        "The settings file (default: outility.ini beside the program, else in the user's "
        "configuration folder).",
        "FILE"},
       {"language", "The language of the texts: DEU, de, de_DE or german.", "LANGUAGE"},
       {"code-page",
        "The Windows code page of the project's files (default: the one that was chosen for it, else 1252).", "N"},
       {"toolbox", "A project that uses the query control, or a file of control libraries.", "FILE"},
       {"wizard", "Open the wizard at once."},
       {"render", "Draw the form file into a picture (PNG or SVG) and end; needs no display.", "FORM.frm"}});
  parser.addPositionalArgument("file", "The project (.vbp) or dictionary to open; with --render, the picture to write.",
                               "[FILE]");
}

int Render(const std::string& form, const std::string& picture, int codePage) {
  RenderToFile(form, picture, codePage);
  if (QFontDatabase::families().isEmpty()) {
    std::cerr << "ostrel-form-wizard-desktop: " << support::Shown(picture)
              << " has no texts, because there is no font; install one, such as the package fonts-liberation\n";
  }
  return common::Done;
}

// Whoever needs no display need not hear what the toolkit misses of one.
void DoWithoutDisplay() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << message.toStdString() << '\n';
  });
}

// The toolkit's own dialogs, and how days are written, in the language of the texts; empty for the user's.
void UseLanguage(const QApplication& application, const std::string& language) {
  if (!language.empty()) {
    const auto locales = adapters::satellite::AllLocales();
    const auto found = std::ranges::find(locales, language, &adapters::satellite::Locale::Abbreviation);
    if (found != locales.end()) QLocale::setDefault(QLocale(QString::fromStdString(std::string(found->Name))));
  }
  auto* translator = new QTranslator(qApp);
  if (translator->load(QLocale(), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    application.installTranslator(translator);
  }
}

int Run(int argc, char** argv) {
  if (NeedsNoDisplay(argc, argv)) DoWithoutDisplay();
  if (!HasDisplay(argc, argv)) {
    return Complain({common::InvalidInput, "there is no display; set DISPLAY, or draw a form with --render"});
  }
  const Application application(argc, argv);
  QApplication::setApplicationName("ostrel-form-wizard-desktop");
  QApplication::setApplicationVersion(FORMWIZARD_VERSION);
  QApplication::setDesktopFileName("ostrel-form-wizard-desktop");
  QCommandLineParser parser;
  AddOptions(parser);
  if (!parser.parse(ArgumentsLeft(argc, argv))) return Misused(Given(parser.errorText()));
  if (parser.isSet("help")) return Print(parser.helpText());
  if (parser.isSet("version")) return Print("ostrel-form-wizard-desktop " FORMWIZARD_VERSION "\n");
  bool isNumber = false;
  const int codePage = parser.value("code-page").toInt(&isNumber);
  if (parser.isSet("code-page") && !isNumber) return Misused("--code-page takes a number such as 1252");

  const QStringList files = parser.positionalArguments();
  if (parser.isSet("render")) {
    if (files.size() != 1) return Misused("--render takes a form and a picture: FORM.frm PICTURE.png (or .svg)");
    return Render(Given(parser.value("render")), Given(files.front()),
                  parser.isSet("code-page") ? codePage : Environment::UsualCodePage);
  }
  if (files.size() > 1) return Misused("one project can be open at a time");
  if (parser.isSet("wizard") && files.isEmpty()) return Misused("--wizard takes a project: --wizard PROJECT.vbp");

  const auto value = [&](const char* option) { return Given(parser.value(option)); };
  std::string language;
  try {
    language = common::LanguageMeant(value("language"));
  } catch (const common::UsageError& error) {
    return Misused(error.what());
  }
  UseLanguage(application, language);
  QApplication::setPalette(ReadableHighlight(QApplication::palette()));
  const std::filesystem::path root = common::ConfigurationRoot();
  MainWindow window({.Profile = value("profile"),
                     .Language = language,
                     .Toolbox = value("toolbox"),
                     .CodePage = parser.isSet("code-page") ? std::optional(codePage) : std::nullopt,
                     .Memory = root.empty() ? "" : system::Utf8(root / "ostrel-form-wizard" / "desktop.ini"),
                     .Cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation).toStdString()});
  window.show();
  const QString file = QString::fromStdString(Given(files.value(0)));
  const QString dictionary = QString::fromStdString(value("dictionary"));
  if (file.isEmpty() && dictionary.isEmpty()) window.OpenLast();
  window.Open(file, dictionary, parser.isSet("wizard"));
  return QApplication::exec();
}

}  // namespace

// Without memory to say so, the program ends as the run-time library ends it.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  const std::shared_ptr<void> streams = common::UseStandardStreams();
  try {
    return Run(argc, argv);
  } catch (...) {
    return Complain(common::CurrentFailure(""));
  }
}
