#include "apps/common/Endings.h"

#include "runtime/RuntimeError.h"
#include "support/Failures.h"

#include <filesystem>
#include <iostream>
#include <new>
#include <system_error>

namespace formwizard::apps::common {
namespace {

std::string Of(const std::string& subject, const std::string& what) {
  return (subject.empty() ? "" : subject + ": ") + what + "; nothing was changed";
}

}  // namespace

Failure CurrentFailure(const std::string& subject) {
  try {
    throw;
  } catch (const UsageError& error) {
    return {WrongUsage, error.what()};
  } catch (const support::InputError& error) {
    return {InvalidInput, error.what()};
  } catch (const runtime::RuntimeError& error) {
    return {InvalidInput, (subject.empty() ? "" : subject + ": ") + error.what()};
  } catch (const support::SaveError& error) {
    return {NotSaved, error.what()};
  } catch (const FailedAfterSaving& error) {
    return {Incomplete, error.what()};
  } catch (const std::bad_alloc&) {
    return {InvalidInput, Of(subject, "this takes more memory than there is")};
  } catch (const std::filesystem::filesystem_error& error) {
    const std::u8string path = error.path1().u8string();
    return {NotSaved, Of(std::string(path.begin(), path.end()), error.code().message())};
  } catch (const std::system_error& error) {
    return {NotSaved, Of(subject, error.code().message())};
  } catch (const std::exception& error) {
    return {NotSaved, Of(subject, std::string("a fault of this program, please report it: ") + error.what())};
  } catch (...) {
    return {NotSaved, Of(subject, "a fault of this program, please report it")};
  }
}

int AfterSaving(const std::string& project, const std::function<int()>& work) {
  try {
    return work();
  } catch (...) {
    throw FailedAfterSaving(project + ": the project was saved; after that: " + CurrentFailure(project).Message);
  }
}

void FlushOutput() {
  if (std::cout.flush()) return;
  throw support::SaveError("standard output: what was printed did not arrive; is it closed, or its disk full?");
}

}  // namespace formwizard::apps::common
