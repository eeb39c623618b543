// Runs one program as a child and prints what it cost, as a user's shell
// would see it: wall time, user and system time, page faults and the peak
// resident set. A small program of its own, without Qt, so that the child's
// peak (which the kernel takes over from the process that forked it) starts
// from almost nothing and compares across programs.
//
//   kelxml_measure PROGRAM [ARGS...]
//   prints "wall_us user_us sys_us minor_faults major_faults peak_kib exit_status"
//   (the program's own output goes to /dev/null)

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cstdio>

namespace {

long long microseconds(const timeval& t)
{
    return static_cast<long long>(t.tv_sec) * 1000000 + t.tv_usec;
}

long long now()
{
    timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return static_cast<long long>(t.tv_sec) * 1000000 + t.tv_nsec / 1000;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: kelxml_measure PROGRAM [ARGS...]\n");
        return 64;
    }
    const long long start = now();
    const pid_t child = fork();
    if (child < 0)
        return 2;
    if (child == 0) {
        const int null = open("/dev/null", O_WRONLY);
        if (null >= 0) {
            dup2(null, 1);
            dup2(null, 2);
        }
        execv(argv[1], argv + 1);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child)
        return 2;
    const long long wall = now() - start;
    std::printf("%lld %lld %lld %ld %ld %ld %d\n", wall, microseconds(usage.ru_utime),
                microseconds(usage.ru_stime), usage.ru_minflt, usage.ru_majflt, usage.ru_maxrss,
                WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status));
    return 0;
}
