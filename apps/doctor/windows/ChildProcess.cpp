#include "apps/doctor/ChildProcess.h"
#include "system/Text.h"

#include <windows.h>

#include <array>
#include <system_error>
#include <utility>

namespace formwizard::apps::doctor {
namespace {

constexpr DWORD Pause = 10;  // in milliseconds, between two looks at a pipe, which cannot be waited for

[[noreturn]] void Fail(const std::filesystem::path& program) {
  throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), system::Utf8(program.wstring()));
}

class Handle {
 public:
  explicit Handle(HANDLE handle = nullptr) : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Handle() {
    if (handle_) ::CloseHandle(handle_);
  }
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

class WindowsProcess : public ChildProcess {
 public:
  WindowsProcess(Handle process, Handle output) : process_(std::move(process)), output_(std::move(output)) {}
  WindowsProcess(const WindowsProcess&) = delete;
  WindowsProcess& operator=(const WindowsProcess&) = delete;
  ~WindowsProcess() override {
    constexpr DWORD longEnough = 1000;
    ::TerminateProcess(process_.Get(), 1);
    ::WaitForSingleObject(process_.Get(), longEnough);
  }

  Reading Read(std::string& text, Clock::time_point deadline) override {
    DWORD available = 0;
    while (::PeekNamedPipe(output_.Get(), nullptr, 0, nullptr, &available, nullptr) && available == 0) {
      if (Clock::now() >= deadline) return Reading::TimeIsOver;
      ::Sleep(Pause);
    }
    std::array<char, 4096> buffer{};
    DWORD count = 0;
    if (available == 0 ||
        !::ReadFile(output_.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr)) {
      return Reading::Ended;
    }
    text.append(buffer.data(), count);
    return Reading::Read;
  }

  int Wait() override {
    DWORD status = 0;
    ::WaitForSingleObject(process_.Get(), INFINITE);
    ::GetExitCodeProcess(process_.Get(), &status);
    return static_cast<int>(status);
  }

 private:
  Handle process_, output_;
};

// As programs take a command line apart: none of the arguments here holds a quote or ends in a backslash.
std::wstring CommandLine(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  std::wstring line = L"\"" + program.wstring() + L"\"";
  for (const std::string& argument : arguments) line += L" \"" + system::Wide(argument) + L"\"";
  return line;
}

Handle Nothing() {
  SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
  return Handle(::CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                              OPEN_EXISTING, 0, nullptr));
}

}  // namespace

std::unique_ptr<ChildProcess> StartProcess(const std::filesystem::path& program,
                                           const std::vector<std::string>& arguments) {
  HANDLE readEnd = nullptr, writeEnd = nullptr;
  if (!::CreatePipe(&readEnd, &writeEnd, nullptr, 0)) Fail(program);
  Handle output(readEnd);
  const Handle written(writeEnd), nothing = Nothing();
  ::SetHandleInformation(writeEnd, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);

  STARTUPINFOW start{};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = start.hStdError = nothing.Get();
  start.hStdOutput = writeEnd;
  PROCESS_INFORMATION made{};
  std::wstring line = CommandLine(program, arguments);
  if (!::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &made)) {
    Fail(program);
  }
  const Handle thread(made.hThread);
  return std::make_unique<WindowsProcess>(Handle(made.hProcess), std::move(output));
}

void FailQuietly() { ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX); }

}  // namespace formwizard::apps::doctor
