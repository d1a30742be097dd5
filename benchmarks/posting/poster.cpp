// SPDX-License-Identifier: Apache-2.0
#include "poster.h"

#include <ctime>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

long long nanoseconds(clockid_t clock)
{
    constexpr long long inOneSecond = 1'000'000'000;
    timespec now{};
    clock_gettime(clock, &now);
    return now.tv_sec * inOneSecond + now.tv_nsec;
}

/// As long for every posting, and never the same twice.
std::string titleOf(int number)
{
    constexpr int firstNumber = 100'000;
    return "Posting number " + std::to_string(firstNumber + number);
}

std::string iconOf(int number, const std::vector<std::string>& icons)
{
    return icons.empty() ? "" : icons[static_cast<std::size_t>(number) % icons.size()];
}

void answerPost(Poster& poster, int count, int pause, const std::vector<std::string>& icons)
{
    static int number = 0;
    for (int i = 0; i < count; ++i, ++number) {
        poster.prepare(titleOf(number), "Shall we have lunch together at noon?", iconOf(number, icons));
        const long long busy = nanoseconds(CLOCK_THREAD_CPUTIME_ID);
        const long long begin = nanoseconds(CLOCK_MONOTONIC);
        poster.post();
        const long long end = nanoseconds(CLOCK_MONOTONIC);
        poster.settle(pause);
        std::cout << begin << ':' << end - begin << ':' << nanoseconds(CLOCK_THREAD_CPUTIME_ID) - busy << ' ';
    }
    std::cout << std::endl;
}

/// Postings as they come in a program that does something else as well.
void answerStream(Poster& poster, int count, int pause, const std::vector<std::string>& icons)
{
    static int number = 0;
    constexpr int rememberedAtMost = 10;
    const long long begin = nanoseconds(CLOCK_MONOTONIC);
    long long waited = 0;
    for (int i = 0; i < count; ++i, ++number) {
        if (i % rememberedAtMost == 0)
            poster.refresh();
        poster.prepare(titleOf(number), "Shall we have lunch together at noon?", iconOf(number, icons));
        const long long called = nanoseconds(CLOCK_MONOTONIC);
        poster.post();
        waited += nanoseconds(CLOCK_MONOTONIC) - called;
        if (pause > 0)
            poster.settle(pause);
    }
    std::cout << begin << ' ' << waited << std::endl;
}

} // namespace

int runPoster(Poster& poster)
{
    const long long begin = nanoseconds(CLOCK_MONOTONIC);
    poster.start();
    std::cout << "ready " << nanoseconds(CLOCK_MONOTONIC) - begin << std::endl;

    std::vector<std::string> icons;
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string verb;
        words >> verb;
        if (verb == "post" || verb == "stream") {
            int count = 0;
            int pause = 0;
            words >> count >> pause;
            (verb == "post" ? answerPost : answerStream)(poster, count, pause, icons);
            continue;
        }
        if (verb == "processor") {
            std::cout << nanoseconds(CLOCK_PROCESS_CPUTIME_ID) << std::endl;
            continue;
        }
        if (verb == "settle") {
            int microseconds = 0;
            words >> microseconds;
            poster.settle(microseconds);
        } else if (verb == "icons") {
            icons.clear();
            for (std::string path; words >> path;)
                icons.push_back(path);
        } else if (verb == "refresh") {
            poster.refresh();
        }
        std::cout << "done" << std::endl;
    }
    return 0;
}
