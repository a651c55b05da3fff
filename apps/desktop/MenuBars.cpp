#include "apps/desktop/MenuBars.h"

#include "adapters/qt/Text.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QPixmap>
#include <QPointer>

#include <utility>

namespace formwizard::apps::desktop {
namespace {

using namespace generator::ide;
using adapters::qt::Text;
using runtime::Raise;

constexpr Int32 AddInsMenuIndex(11);
constexpr int ObjectDoesNotSupport = 438;

// A command of the menu. The separator of its group, if it starts one, stands before it.
class Command : public CommandBarControl {
 public:
  Command(QMenu& menu, QAction& action) : menu_(menu), action_(&action) {}

  std::shared_ptr<CommandBarControls> Controls() override { Raise(ObjectDoesNotSupport); }
  bool BeginGroup() const override { return Separator() != nullptr; }
  void SetBeginGroup(bool value) override {
    QAction* separator = Separator();
    if (value && !separator) menu_.insertSeparator(action_);
    if (!value && separator) menu_.removeAction(separator);
  }
  void SetCaption(std::string_view caption) override { Action().setText(Text(caption)); }
  void SetOnAction(std::string_view action) override { Action().setObjectName(Text(action)); }
  void PasteFace() override { Action().setIcon(QIcon(QPixmap::fromImage(QApplication::clipboard()->image()))); }
  void Delete() override {
    SetBeginGroup(false);
    delete &Action();
  }
  QAction& Action() const {
    if (!action_) Raise(runtime::AutomationError, "The command has been deleted");
    return *action_;
  }

 private:
  QAction* Separator() const {
    const QList<QAction*> actions = menu_.actions();
    const qsizetype at = actions.indexOf(&Action());
    return at > 0 && actions[at - 1]->isSeparator() ? actions[at - 1] : nullptr;
  }

  QMenu& menu_;
  QPointer<QAction> action_;
};

class MenuControls : public CommandBarControls {
 public:
  explicit MenuControls(QMenu& menu) : menu_(menu) {}

  Int32 Count() const override { return Int32(Commands().size()); }
  std::shared_ptr<CommandBarControl> Item(Int32 index) override {
    const QList<QAction*> commands = Commands();
    if (index < Int32(1) || index > Count()) Raise(runtime::SubscriptOutOfRange);
    return std::make_shared<Command>(menu_, *commands[index.Value() - 1]);
  }
  std::shared_ptr<CommandBarControl> Add(CommandBarControlType) override {
    return std::make_shared<Command>(menu_, *menu_.addAction(""));
  }

 private:
  QList<QAction*> Commands() const {
    QList<QAction*> commands = menu_.actions();
    commands.removeIf([](const QAction* action) { return action->isSeparator(); });
    return commands;
  }

  QMenu& menu_;
};

class AddInsMenu : public CommandBarControl {
 public:
  explicit AddInsMenu(QMenu& menu) : menu_(menu) {}

  std::shared_ptr<CommandBarControls> Controls() override { return std::make_shared<MenuControls>(menu_); }
  bool BeginGroup() const override { return false; }
  void SetBeginGroup(bool) override { Refuse(); }
  void SetCaption(std::string_view) override { Refuse(); }
  void SetOnAction(std::string_view) override { Refuse(); }
  void PasteFace() override { Refuse(); }
  void Delete() override { Refuse(); }

 private:
  [[noreturn]] static void Refuse() { Raise(runtime::AutomationError, "The Add-Ins menu belongs to the environment"); }

  QMenu& menu_;
};

class MenuBar : public CommandBarControls {
 public:
  explicit MenuBar(QMenu& addInsMenu) : addInsMenu_(addInsMenu) {}

  Int32 Count() const override { return AddInsMenuIndex; }
  std::shared_ptr<CommandBarControl> Item(Int32 index) override {
    return index == AddInsMenuIndex ? std::make_shared<AddInsMenu>(addInsMenu_) : nullptr;
  }
  std::shared_ptr<CommandBarControl> Add(CommandBarControlType) override {
    Raise(runtime::AutomationError, "Commands can only be added to the Add-Ins menu");
  }

 private:
  QMenu& addInsMenu_;
};

class Clicks : public CommandBarEvents {
 public:
  Clicks(std::shared_ptr<Command> command, Click onClick) : command_(std::move(command)), onClick_(std::move(onClick)) {
    connection_ = QObject::connect(&command_->Action(), &QAction::triggered, [this] {
      bool handled = false;
      bool cancelDefault = false;
      onClick_(*command_, handled, cancelDefault);
    });
  }
  ~Clicks() override { QObject::disconnect(connection_); }
  Clicks(const Clicks&) = delete;
  Clicks& operator=(const Clicks&) = delete;

 private:
  std::shared_ptr<Command> command_;
  Click onClick_;
  QMetaObject::Connection connection_;
};

}  // namespace

std::shared_ptr<CommandBarControls> MenuBarWith(QMenu& addInsMenu) { return std::make_shared<MenuBar>(addInsMenu); }

std::unique_ptr<CommandBarEvents> ConnectClicks(const std::shared_ptr<CommandBarControl>& control,
                                                CommandBarEvents::Click onClick) {
  auto command = std::dynamic_pointer_cast<Command>(control);
  if (!command) Raise(runtime::TypeMismatch);
  return std::make_unique<Clicks>(std::move(command), std::move(onClick));
}

}  // namespace formwizard::apps::desktop
