// SPDX-License-Identifier: GPL-3.0-or-later
//
// Measures the time from the start of a program to its first painted window, and what it uses while
// idle.
//
// usage: start PLUGINS PROGRAM [IDLE_SECONDS]
// PLUGINS is the folder of the plugin that reports the painting. With IDLE_SECONDS the program gets
// three seconds to settle and is then watched from outside for that long.

#include "readings.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{

constexpr int watcher_descriptor = 3;
constexpr unsigned settle_seconds = 3;

/// Processor time of all threads in nanoseconds (Documentation/scheduler/sched-stats.rst of the
/// kernel).
double cpu_ns(const std::string &process)
{
    double sum = 0.0;
    for (const auto &thread : std::filesystem::directory_iterator(process + "/task")) {
        std::ifstream file(thread.path() / "schedstat");
        double time = 0.0;
        if (!(file >> time))
            give_up("the system doesn't tell what a thread takes");
        sum += time;
    }
    return sum;
}

double resident_mb(const std::string &process)
{
    std::ifstream statm(process + "/statm");
    double all_pages = 0.0;
    double resident_pages = 0.0;
    statm >> all_pages >> resident_pages;
    return resident_pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

bool has_children(const std::string &process)
{
    const std::string id = process.substr(process.rfind('/') + 1);
    std::ifstream file(process + "/task/" + id + "/children");
    if (!file)
        give_up("the system doesn't tell of the children");
    int child = 0;
    return static_cast<bool>(file >> child);
}

void watch_idling(const std::string &process, unsigned seconds)
{
    sleep(settle_seconds);
    const double before = cpu_ns(process);
    sleep(seconds);
    report("idle_ms_per_s", (cpu_ns(process) - before) / 1e6 / seconds);
    report("mb", resident_mb(process));
    report("children", has_children(process) ? 1 : 0);
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc < 3)
        give_up("usage: start PLUGINS PROGRAM [IDLE_SECONDS]");
    setenv("QT_PLUGIN_PATH", argv[1], 1);
    setenv("QT_QPA_GENERIC_PLUGINS", "first_paint", 1);
    int painted[2];
    if (pipe2(painted, O_CLOEXEC) != 0)
        give_up("no pipe");

    const double start = now_ms();
    const pid_t program = fork();
    if (program == 0) {
        dup2(painted[1], watcher_descriptor);
        execl(argv[2], argv[2], static_cast<char *>(nullptr));
        _exit(127);
    }
    close(painted[1]);
    char byte = 0;
    if (read(painted[0], &byte, 1) != 1)
        give_up(std::string(argv[2]) + " paints nothing");
    report("start_ms", now_ms() - start);

    if (argc > 3)
        watch_idling("/proc/" + std::to_string(program), static_cast<unsigned>(std::atoi(argv[3])));
    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);
}
