// The wizard in real windows, over the sample's dictionary and a project in memory, above the environment's main
// window.
#pragma once

#include "adapters/satellite/Satellites.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/win32/Win32Desktop.h"
#include "tests/adapters/win32/User.h"
#include "tests/support/SampleDictionary.h"

namespace formwizard::tests {

// The satellites that were built, for a user of one language.
class Language : public adapters::satellite::Satellites {
 public:
  Language(std::string name, int localeId) : name_(std::move(name)), localeId_(localeId) {}
  std::string UserLanguage() const override { return name_; }
  int UserLocaleId() const override { return localeId_; }

 private:
  std::string name_;
  int localeId_;
};

struct DialogFixture {
  explicit DialogFixture(const std::string& language = "ENU", int localeId = 1033) : Texts(language, localeId) {}

  MainWindow Main;
  adapters::win32::Win32Desktop Desktop{Main.Handle()};
  adapters::textmeasure::BuiltInTextMeasure Measure;
  WizardFixture Fakes;
  TemporaryFolder Folder;
  std::unique_ptr<wizard::factory::FactoryCreator> Dictionary = OpenSampleDictionary(Folder);
  Language Texts;
  wizard::WizardServices Services{{.Desktop = Desktop,
                                   .Measure = Measure,
                                   .Profiles = Fakes.Profile,
                                   .Factories = *Dictionary,
                                   .Libraries = Texts,
                                   .ProgramFolder = BuiltFolder()}};
  wizard::frmWizard Dialog{Services, Fakes.Ide};

  void UseWizard(const std::function<void()>& work) {
    UseWindows([this] { Desktop.ShowModal(Dialog, nullptr); }, work);
  }
};

}  // namespace formwizard::tests
