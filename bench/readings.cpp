// SPDX-License-Identifier: GPL-3.0-or-later

#include "readings.h"

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace
{

double ms_of(const timeval &time)
{
    return static_cast<double>(time.tv_sec) * 1000.0 + static_cast<double>(time.tv_usec) / 1000.0;
}

}  // namespace

double now_ms()
{
    const auto since_start = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(since_start).count();
}

double own_cpu_ms()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return ms_of(usage.ru_utime) + ms_of(usage.ru_stime);
}

double resident_bytes()
{
    std::ifstream statm("/proc/self/statm");
    long all_pages = 0;
    long resident_pages = 0;
    statm >> all_pages >> resident_pages;
    return static_cast<double>(resident_pages) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void report(const std::string &name, double value)
{
    std::cout << name << " " << value << std::endl;
}

void give_up(const std::string &reason)
{
    std::cerr << reason << std::endl;
    std::exit(2);
}
