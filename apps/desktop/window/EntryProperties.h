// Shows among the properties what is chosen in the dictionary: what the dictionary knows of it, and the forms of the
// project that were made from it.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/dictionary/DictionaryPane.h"
#include "apps/desktop/properties/PropertiesPanel.h"

#include <QObject>
#include <QTimer>

#include <cstddef>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

class EntryProperties : public QObject {
 public:
  // All must outlive this object. Of the dictionary and the form in `views`, the properties show what has had the focus
  // last.
  EntryProperties(const Texts& texts, DictionaryPane& dictionary, PropertiesPanel& panel,
                  const Environment& environment, QWidget& views);

  // The project is another one, or what it holds.
  void ReadProject();

 private:
  struct MadeForm {
    std::string Name, Class;
    std::vector<QString> Properties;  // "Home.City"
  };

  void Follow(QWidget* focus);
  void Show();
  void ReadOn();
  MadeForm Read(const adapters::vb6files::ComponentSummary& form) const;
  std::vector<PropertyRow> Rows() const;

  const Texts& texts_;
  DictionaryPane& dictionary_;
  PropertiesPanel& panel_;
  const Environment& environment_;
  QWidget& views_;
  std::vector<adapters::vb6files::ComponentSummary> unread_;  // forms, the next one last
  std::vector<MadeForm> forms_;
  QTimer slices_;
};

}  // namespace formwizard::apps::desktop
