// The window beside the wizard that shows the form as it would come out.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/preview/PreviewRun.h"

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace formwizard::apps::desktop {

class PreviewWindow : public QWidget {
 public:
  // A tool window of the dialog, which stays usable beside it and never takes its focus.
  PreviewWindow(QWidget& dialog, Texts texts);

  // Called when the user has closed it.
  std::function<void()> OnClosed;

  // Scale and scroll stay.
  void ShowForm(PreviewedForm form);
  void ShowNothing();
  // The last form stays, with a line saying why it is old.
  void ShowOld(const std::string& why);
  // Beside the dialog where there is room: right of it, else left, else below. False where there is none.
  bool PlaceBeside(const QRect& dialog, const QRect& screen);

  // Where a dialog that would be here has to open so that there is room right of it, which is better than below;
  // nothing where it may stay, or where the screen is too small for both.
  static std::optional<QPoint> PlaceOfDialog(const QRect& dialog, const QRect& screen);

  FormView& View() { return *view_; }
  // The lines below the picture, from the top.
  QStringList Notes() const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddNote(const QString& text, bool isWarning);
  void ClearNotes();

  Texts texts_;
  QLabel *name_, *size_, *empty_;
  FormView* view_;
  QWidget* notes_;
  QVBoxLayout* lines_;
};

}  // namespace formwizard::apps::desktop
