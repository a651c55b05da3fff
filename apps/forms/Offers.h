// What classes offer to forms.
#pragma once

#include "kept/ClassChanges.h"
#include "support/Names.h"
#include "wizard/factory/Factory.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace formwizard::apps::forms {

struct OfferedClass {
  std::vector<kept::Property> Properties;  // fields that a form can show, in the order of the dialog
  support::Names Paths;                    // of these
};

// Reads each class once.
class Offers {
 public:
  // `server` must outlive this object.
  explicit Offers(wizard::factory::FactoryCreator& server) : server_(server) {}

  // Nothing in it for a class or system that there is not.
  const OfferedClass& ClassOf(const std::string& system, const std::string& className);
  const std::vector<kept::Property>& Of(const std::string& system, const std::string& className) {
    return ClassOf(system, className).Properties;
  }

 private:
  wizard::factory::ObjectFactory* Connected(const std::string& system);

  wizard::factory::FactoryCreator& server_;
  std::map<std::string, std::unique_ptr<wizard::factory::ObjectFactory>> systems_;  // null for one that there is not
  std::map<std::pair<std::string, std::string>, OfferedClass> classes_;
};

}  // namespace formwizard::apps::forms
