#include <algorithm>
#include <array>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

#include "platform/Process.h"

// What a program may do that reads what nobody vouches for.
namespace platform {

namespace {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TOPICSMITH_SANITIZED
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define TOPICSMITH_SANITIZED
#endif

/// Sanitizers take large parts of the address space, and look at their own process at its end.
#ifdef TOPICSMITH_SANITIZED
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

#if defined(__x86_64__)
constexpr std::uint32_t machine = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t machine = AUDIT_ARCH_AARCH64;
#else
constexpr std::uint32_t machine = 0; // its calls are not filtered
#endif

/// What reading a file, writing to one that is open, and memory need. Everything else fails, but
/// does not end the program: a library may well try something that it can do without.
constexpr std::array allowed = {
    SYS_read,          SYS_pread64,      SYS_readv,          SYS_write,        SYS_writev,
    SYS_lseek,         SYS_close,        SYS_fstat,          SYS_newfstatat,   SYS_statx,
    SYS_mmap,          SYS_munmap,       SYS_mremap,         SYS_mprotect,     SYS_madvise,
    SYS_brk,           SYS_futex,        SYS_getrandom,      SYS_getpid,       SYS_gettid,
    SYS_clock_gettime, SYS_rt_sigaction, SYS_rt_sigprocmask, SYS_rt_sigreturn, SYS_restart_syscall,
    SYS_sched_yield,   SYS_exit,         SYS_exit_group};

constexpr sock_filter statement(unsigned code, std::uint32_t value) {
    return {static_cast<std::uint16_t>(code), 0, 0, value};
}

/// Goes on behind so many of the following statements, if something holds or does not.
constexpr sock_filter jump(unsigned kind, std::size_t value, std::uint8_t ifTrue,
                           std::uint8_t ifFalse) {
    return {static_cast<std::uint16_t>(BPF_JMP | kind | BPF_K), ifTrue, ifFalse,
            static_cast<std::uint32_t>(value)};
}

std::vector<sock_filter> filterOfCalls() {
    constexpr unsigned load = BPF_LD | BPF_W | BPF_ABS;
    constexpr unsigned answer = BPF_RET | BPF_K;
    constexpr sock_filter allow = statement(answer, SECCOMP_RET_ALLOW);
    constexpr sock_filter refuse = statement(answer, SECCOMP_RET_ERRNO | EPERM);
    // The flags stand in the lower half of the third argument.
    constexpr std::uint32_t flags = offsetof(seccomp_data, args) + 2 * sizeof(std::uint64_t);
    std::vector<sock_filter> filter = {
        statement(load, offsetof(seccomp_data, arch)),
        jump(BPF_JEQ, machine, 1, 0), // others number their calls in another way
        statement(answer, SECCOMP_RET_KILL_PROCESS),
        statement(load, offsetof(seccomp_data, nr)),
    };
    for (const auto call : allowed) {
        filter.push_back(jump(BPF_JEQ, static_cast<std::size_t>(call), 0, 1));
        filter.push_back(allow);
    }
    filter.push_back(jump(BPF_JEQ, SYS_openat, 1, 0));
    filter.push_back(refuse);
    filter.push_back(statement(load, flags));
    filter.push_back(jump(BPF_JSET, O_ACCMODE | O_CREAT | O_TRUNC | O_APPEND, 0, 1));
    filter.push_back(refuse);
    filter.push_back(allow);
    return filter;
}

/// Leaves one file to be read, of all, where the system can do that.
void leaveOneFile(const std::filesystem::path& file) {
    constexpr std::uint64_t everything = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1U) - 1;
    landlock_ruleset_attr attributes{};
    attributes.handled_access_fs = everything;
    const auto rules =
        static_cast<int>(::syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0));
    if (rules < 0) {
        return;
    }
    landlock_path_beneath_attr rule{};
    rule.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE;
    rule.parent_fd = ::open(file.c_str(), O_PATH | O_CLOEXEC);
    if (rule.parent_fd >= 0) {
        ::syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
        ::close(rule.parent_fd);
    }
    ::syscall(SYS_landlock_restrict_self, rules, 0);
    ::close(rules);
}

/// One that cannot be set stands lower already.
template <typename Resource>
void limit(Resource resource, rlim_t value) {
    const rlimit both = {value, value};
    ::setrlimit(resource, &both);
}

} // namespace

void limitThisProgram(const Limits& limits) {
    // The one that started this program may have other habits.
    for (const int number : {SIGALRM, SIGXFSZ}) {
        std::signal(number, SIG_DFL);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    alarm(limits.seconds);
    limit(RLIMIT_FSIZE, limits.written);
    limit(RLIMIT_CORE, 0);
    if (!isSanitized) {
        limit(RLIMIT_AS, limits.memory);
    }
}

void confineThisProgram(const std::filesystem::path& file) {
    if (isSanitized || ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        return;
    }
    leaveOneFile(file);
    if (machine != 0) {
        std::vector<sock_filter> filter = filterOfCalls();
        const sock_fprog program = {static_cast<unsigned short>(filter.size()), filter.data()};
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
    }
}

} // namespace platform
