// What an update of kept forms will do, before it is done: the user decides what both sides changed, and takes it or
// not.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/kept/UpdateChoices.h"
#include "apps/desktop/update/ChangeTree.h"
#include "apps/desktop/update/CodeComparison.h"
#include "apps/desktop/update/FormMarks.h"
#include "system/CodePage.h"

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>

#include <cstdint>
#include <vector>

namespace formwizard::apps::desktop {

class UpdateView : public QDialog {
 public:
  enum class Cause : std::uint8_t { Class, Choices };  // what makes the forms others: their classes, or their user
  // How it ends beside QDialog's Accepted, when all is decided, and Rejected: other choices are wanted.
  static constexpr int ChooseAgain = 2;

  // `title` is that of the command. At least one form. `texts` and `codePage`, that of the project, must outlive this
  // object.
  UpdateView(QWidget* owner, const Texts& texts, const QString& title, const system::CodePage& codePage,
             std::vector<UpdateChoices> forms, Cause cause = Cause::Class);

  const std::vector<UpdateChoices>& Forms() const { return forms_; }
  const CodeComparison& Code() const { return *code_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* MadeHeading();
  QWidget* MadeLeft();
  QWidget* MadePicture();
  QWidget* MadeButtons();
  void ShowForm(std::size_t form);
  QString CountOf(const FormChanges& changes) const;
  QString NoteOn(const UpdateChoices& update) const;
  void ShowChanges();
  void ShowDecided();
  void Show(const FormChange& change);
  void SetNarrow(bool isNarrow);
  adapters::vb6files::FormTree TreeOf(const kept::FormTexts& texts) const;

  const Texts& texts_;
  const system::CodePage& codePage_;
  std::vector<UpdateChoices> forms_;
  Cause cause_;
  std::size_t shown_ = 0;
  std::vector<int> firstLines_{0, 0};  // of the code in the two files
  QLabel *heading_, *count_, *note_;
  QListWidget* names_;  // of the forms, where there are several
  ChangeTree* changes_;
  FormView* form_;
  FormMarks* marks_;
  CodeComparison* code_;
  QWidget* picture_;
  QSplitter* right_;
  QTabWidget* tabs_;
  QPushButton* update_;
};

}  // namespace formwizard::apps::desktop
