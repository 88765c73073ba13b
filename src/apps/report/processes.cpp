// Several processes that share the files of a call: each takes the next one when it is ready.
#include "apps/report/converter.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qor::app {

namespace {

/// What a process says of a file, in one piece: a pipe keeps up to 4096 bytes together.
struct Report {
    std::size_t index = 0;
    Converted::What what = Converted::What::Done;
    char problem[2000] = {};
};

void Work(const std::vector<Conversion>& jobs, std::atomic<std::size_t>& next, int pipe,
          const std::function<Converted(const Conversion&)>& convert) {
    for (std::size_t index = next++; index < jobs.size(); index = next++) {
        const Converted converted = convert(jobs[index]);
        Report report;
        report.index = index;
        report.what = converted.what;
        std::snprintf(report.problem, sizeof report.problem, "%s", converted.problem.c_str());
        if (write(pipe, &report, sizeof report) != static_cast<ssize_t>(sizeof report))
            return;
    }
}

bool ReadReport(int pipe, Report& report) {
    std::size_t have = 0;
    auto* to = reinterpret_cast<char*>(&report);
    while (have < sizeof report) {
        const ssize_t count = read(pipe, to + have, sizeof report - have);
        if (count == 0 || (count < 0 && errno != EINTR))
            return false;
        have += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return true;
}

} // namespace

void ConvertAll(const std::vector<Conversion>& jobs, int processes,
                const std::function<std::function<Converted(const Conversion&)>()>& make,
                const std::function<void(std::size_t index, const Converted&)>& done) {
    processes = std::min(processes, static_cast<int>(jobs.size()));
    int ends[2] = {-1, -1};
    void* shared = MAP_FAILED;
    if (processes > 1 && pipe(ends) == 0)
        shared = mmap(nullptr, sizeof(std::atomic<std::size_t>), PROT_READ | PROT_WRITE,
                      MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        if (jobs.empty())
            return;
        const auto convert = make();
        for (std::size_t index = 0; index < jobs.size(); ++index)
            done(index, convert(jobs[index]));
        return;
    }
    auto* const next = new (shared) std::atomic<std::size_t>(0);
    std::vector<pid_t> children;
    for (int n = 0; n < processes; ++n) {
        const pid_t child = fork();
        if (child == 0) {
            close(ends[0]);
            Work(jobs, *next, ends[1], make());
            _exit(0); // what the parent has begun is the parent's to end
        }
        if (child > 0)
            children.push_back(child);
    }
    close(ends[1]);
    std::vector<bool> told(jobs.size(), false);
    Report report;
    while (ReadReport(ends[0], report) && report.index < jobs.size()) {
        told[report.index] = true;
        done(report.index, {report.what, report.problem});
    }
    close(ends[0]);
    for (const pid_t child : children)
        waitpid(child, nullptr, 0);
    for (std::size_t index = 0; index < jobs.size(); ++index) {
        if (!told[index])
            done(index, {Converted::What::NotRead, jobs[index].source.string() + ": its process has died."});
    }
    munmap(shared, sizeof(std::atomic<std::size_t>));
}

} // namespace qor::app
