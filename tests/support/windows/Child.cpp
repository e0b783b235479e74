#include "support/Child.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/Files.h"

namespace test {

namespace {

HANDLE handleOf(std::intptr_t process) {
    return reinterpret_cast<HANDLE>(process);
}

} // namespace

Child::Child(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
    std::wstring line = L'"' + program.native() + L'"';
    for (const std::string& argument : arguments) {
        line += L" \"" + platform::pathFromUtf8(argument).native() + L'"';
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION child{};
    const BOOL started = CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE,
                                        CREATE_NO_WINDOW, nullptr, nullptr, &start, &child);
    EXPECT_NE(started, FALSE);
    if (started != FALSE) {
        CloseHandle(child.hThread);
        process_ = reinterpret_cast<std::intptr_t>(child.hProcess);
    }
}

Child::~Child() {
    if (!hasEnded()) {
        TerminateProcess(handleOf(process_), 1);
        WaitForSingleObject(handleOf(process_), INFINITE);
        CloseHandle(handleOf(process_));
    }
}

bool Child::hasEnded() {
    if (process_ != -1 && WaitForSingleObject(handleOf(process_), 0) == WAIT_OBJECT_0) {
        CloseHandle(handleOf(process_));
        process_ = -1;
    }
    return process_ == -1;
}

} // namespace test
