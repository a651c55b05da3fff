// The properties of what is selected on a form, to be read and copied, as the environment's own window has them.
#pragma once

#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/properties/PropertiesModel.h"

#include <QComboBox>
#include <QLabel>
#include <QTableView>
#include <QWidget>

#include <functional>
#include <string>

namespace formwizard::apps::desktop {

class PropertiesPanel : public QWidget {
 public:
  // `form` must outlive the panel, or never be asked again.
  explicit PropertiesPanel(FormView& form, Texts texts = {});

  // Called when the user wants to see a procedure: "txtCity_Change".
  std::function<void(const std::string& procedure)> OnProcedureWanted;
  // The same for a form, by its name.
  std::function<void(const std::string& form)> OnFormWanted;

  // To be called when another control is selected or another form shown. The selected property and the scroll stay.
  void ShowSelection();
  // Something that is on no form, by its name, until a control is shown again.
  void ShowOther(const QString& name, const QIcon& icon, std::vector<PropertyRow> rows);
  bool IsOtherShown() const { return isOther_; }
  // The chosen value, to the clipboard.
  void CopyValue();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowObjects();
  void ShowRows(std::vector<PropertyRow> rows);
  void ShowMeaning();
  void Open(const QModelIndex& index);

  FormView& form_;
  Texts texts_;
  PropertiesModel* model_;
  QComboBox* objects_;
  QTableView* table_;
  QLabel* meaning_;
  int shownTimes_ = -1;  // as the canvas counts them
  bool isShowing_ = false, isOther_ = false;
  // What the user has scrolled to and which row was chosen, also where a control has less.
  int wantedScroll_ = 0;
  QString wantedTitle_, wantedName_;
};

}  // namespace formwizard::apps::desktop
