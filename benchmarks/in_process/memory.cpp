// SPDX-License-Identifier: Apache-2.0
#include "memory.h"

#include <cstdio>
#include <fstream>
#include <string>

#include <malloc.h>

long long heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long long>(info.uordblks + info.hblkhd);
}

void printMemory()
{
    constexpr long long kibibyte = 1024;
    // What is free at the end of the heap depends on what happened before.
    malloc_trim(0);
    long long resident = 0;
    long long ownPages = 0;
    std::ifstream file("/proc/self/smaps_rollup");
    std::string name;
    for (std::string line; std::getline(file, line);) {
        const std::size_t colon = line.find(':');
        if (colon == std::string::npos || line.find("kB") == std::string::npos)
            continue;
        const long long bytes = std::stoll(line.substr(colon + 1)) * kibibyte;
        if (line.rfind("Rss:", 0) == 0)
            resident = bytes;
        else if (line.rfind("Private_", 0) == 0 && line.rfind("Private_Hugetlb", 0) != 0)
            ownPages += bytes;
    }
    std::printf("resident %lld\nprivate %lld\nheap %lld\n", resident, ownPages, heapBytes());
}
