// The most memory that some work takes, measured in a process of its own.
#pragma once

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace easel::bench {

/// What the system says of this process's memory, in bytes: "VmRSS:" now, "VmHWM:" at most.
inline double memoryInUse(const std::string& field) {
    std::ifstream status("/proc/self/status");
    double kilobytes = 0;
    for (std::string word; status >> word;)
        if (word == field) status >> kilobytes;
    return kilobytes * 1024;
}

/// In bytes, beyond what was in use after `warmUp`, which loads the code that the work needs; negative when the process
/// came to a bad end.
template <class Work, class WarmUp> double peakOf(Work work, WarmUp warmUp) {
    int ends[2];
    if (::pipe(ends) != 0) return -1;
    const pid_t child = ::fork();
    if (child == 0) {
        warmUp();
        // What earlier measurements have freed must not be had for nothing, nor their peak count.
        ::malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << 5;
        const double before = memoryInUse("VmRSS:");
        work();
        const double peak = memoryInUse("VmHWM:") - before;
        ::_exit(::write(ends[1], &peak, sizeof peak) == sizeof peak ? 0 : 1);
    }
    ::close(ends[1]);
    double peak = -1;
    const bool whole = ::read(ends[0], &peak, sizeof peak) == sizeof peak;
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return whole && status == 0 ? peak : -1;
}

} // namespace easel::bench
