#include "platform/Process.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <memory>

#include "platform/Files.h"
#include "platform/windows/System.h"

// clang-format off: it wants to stand behind <windows.h>
#include <shellapi.h>
// clang-format on

namespace platform {

namespace fs = std::filesystem;

namespace {

HANDLE handleOf(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

/// The list of what a program inherits: without it, it would be everything that happens to be open.
/// Each stands in it once.
class Inherited {
public:
    explicit Inherited(std::array<HANDLE, 2> handles) : handles_(handles) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        bytes_.resize(size);
        isReady_ = InitializeProcThreadAttributeList(list(), 1, 0, &size) != FALSE;
        isReady_ = isReady_
                   && UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST,
                                                handles_.data(), sizeof handles_, nullptr, nullptr)
                          != FALSE;
    }
    ~Inherited() { DeleteProcThreadAttributeList(list()); }
    Inherited(const Inherited&) = delete;
    Inherited& operator=(const Inherited&) = delete;

    bool isReady() const { return isReady_; }
    LPPROC_THREAD_ATTRIBUTE_LIST list() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(bytes_.data());
    }

private:
    std::array<HANDLE, 2> handles_;
    std::string bytes_;
    bool isReady_ = false;
};

HANDLE openInheritable(const fs::path& path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CreateFileW(systemName(path).c_str(), access,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inheritable,
                       disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Without it the system would look for a debugger, or ask the person.
LONG WINAPI endAtOnce(EXCEPTION_POINTERS* /*exception*/) {
    TerminateProcess(GetCurrentProcess(), 1);
    return EXCEPTION_EXECUTE_HANDLER;
}

/// What the watching thread of a limited program must know.
struct Watched {
    ULONGLONG end; ///< milliseconds since the machine was started
    LONGLONG bytes;
};

DWORD WINAPI watch(void* data) {
    constexpr DWORD pause = 20; // milliseconds
    const std::unique_ptr<Watched> limits(static_cast<Watched*>(data));
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    for (;;) {
        LARGE_INTEGER size{};
        const bool isFull = GetFileSizeEx(output, &size) != FALSE && size.QuadPart > limits->bytes;
        if (isFull || GetTickCount64() > limits->end) {
            TerminateProcess(GetCurrentProcess(), 1);
        }
        Sleep(pause);
    }
}

/// Puts this program into a group of its own, which is bounded in memory and starts no others.
void limitJob(std::uint64_t memory) {
    const HANDLE job = CreateJobObjectW(nullptr, nullptr); // as long as the program
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags =
        JOB_OBJECT_LIMIT_PROCESS_MEMORY | JOB_OBJECT_LIMIT_ACTIVE_PROCESS;
    limits.BasicLimitInformation.ActiveProcessLimit = 1;
    limits.ProcessMemoryLimit = static_cast<SIZE_T>(memory);
    if (job != nullptr
        && SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits)
               != FALSE) {
        AssignProcessToJobObject(job, GetCurrentProcess());
    }
}

} // namespace

std::vector<std::string> programArguments(int /*argc*/, char* /*argv*/[]) {
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(utf8FromPath(words[i]));
    }
    LocalFree(words);
    return arguments;
}

bool isAtTerminal() {
    return _isatty(_fileno(stderr)) != 0;
}

void useStreamsForUtf8() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    static const UINT before = GetConsoleOutputCP();
    if (before != 0 && SetConsoleOutputCP(CP_UTF8) != FALSE) {
        std::atexit([] { SetConsoleOutputCP(before); }); // what runs next there expects its own
    }
}

std::uint64_t processNumber() {
    return GetCurrentProcessId();
}

bool isRunning(std::uint64_t process) {
    const Handle handle(
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process)));
    DWORD code = 0;
    if (!handle.isOpen()) {
        return GetLastError() != ERROR_INVALID_PARAMETER; // it may belong to somebody else
    }
    return GetExitCodeProcess(handle.get(), &code) == FALSE || code == STILL_ACTIVE;
}

int catchEndSignals() {
    return -1; // the toolkit is told when the person logs off
}

void endBySignal() {}

TemporaryFile::TemporaryFile() {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    std::array<wchar_t, MAX_PATH + 1> name{};
    if (GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()) == 0
        || GetTempFileNameW(folder.data(), L"tsm", 0, name.data()) == 0) {
        return;
    }
    handle_ = reinterpret_cast<std::intptr_t>(openFile(name.data(), GENERIC_READ, OPEN_EXISTING));
    if (handle_ != -1) {
        path_ = name.data();
    }
}

TemporaryFile::~TemporaryFile() {
    remove();
    if (handle_ != -1) {
        CloseHandle(handleOf(handle_));
    }
}

// The system takes it away when it is closed.
void TemporaryFile::remove() {
    if (!path_.empty()) {
        DeleteFileW(path_.c_str());
        path_.clear();
    }
}

std::uint64_t TemporaryFile::size() const {
    LARGE_INTEGER size{};
    return GetFileSizeEx(handleOf(handle_), &size) != FALSE
               ? static_cast<std::uint64_t>(size.QuadPart)
               : 0;
}

std::string TemporaryFile::read(std::uint64_t offset, std::size_t size) const {
    std::string bytes(size, '\0');
    std::size_t filled = 0;
    while (filled < size) {
        const std::uint64_t place = offset + filled;
        OVERLAPPED at{};
        at.Offset = static_cast<DWORD>(place);
        at.OffsetHigh = static_cast<DWORD>(place >> 32U);
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(size - filled, 1U << 30U));
        if (ReadFile(handleOf(handle_), bytes.data() + filled, wanted, &count, &at) == FALSE
            || count == 0) {
            break;
        }
        filled += count;
    }
    bytes.resize(filled);
    return bytes;
}

bool runOnFile(const fs::path& program, const fs::path& file, const fs::path& output) {
    const Handle nothing(openInheritable(L"NUL", GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING));
    const Handle result(openInheritable(output, GENERIC_WRITE, TRUNCATE_EXISTING));
    if (!nothing.isOpen() || !result.isOpen()) {
        return false;
    }
    Inherited inherited({nothing.get(), result.get()});
    STARTUPINFOEXW start{};
    start.StartupInfo.cb = sizeof start;
    start.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    start.StartupInfo.hStdInput = nothing.get();
    start.StartupInfo.hStdOutput = result.get();
    start.StartupInfo.hStdError = nothing.get();
    start.lpAttributeList = inherited.list();
    // No name of a file can hold a quote.
    std::wstring line = L'"' + program.native() + L"\" \"" + file.native() + L'"';
    PROCESS_INFORMATION child{};
    if (!inherited.isReady()
        || CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE,
                          CREATE_NO_WINDOW | EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr,
                          &start.StartupInfo, &child)
               == FALSE) {
        return false;
    }
    const Handle process(child.hProcess);
    const Handle thread(child.hThread);
    DWORD code = 1;
    return WaitForSingleObject(process.get(), INFINITE) == WAIT_OBJECT_0
           && GetExitCodeProcess(process.get(), &code) != FALSE && code == 0;
}

void limitThisProgram(const Limits& limits) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    SetUnhandledExceptionFilter(endAtOnce);
    limitJob(limits.memory);
    auto watched =
        std::make_unique<Watched>(Watched{GetTickCount64() + ULONGLONG{limits.seconds} * 1000,
                                          static_cast<LONGLONG>(limits.written)});
    const Handle thread(CreateThread(nullptr, 0, watch, watched.get(), 0, nullptr));
    if (thread.isOpen()) {
        static_cast<void>(watched.release()); // the thread's now
    }
}

void confineThisProgram(const std::filesystem::path& /*file*/) {} // its job starts no programs

} // namespace platform
