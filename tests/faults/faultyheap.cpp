// SPDX-License-Identifier: Apache-2.0
// A heap that refuses on demand, for whatever program or module this is linked into. Without the
// environment variables it isn't there.
//   FAULTY_HEAP        "NAME once N": the Nth call fails; "NAME from N": all calls from the Nth on.
//                      NAME is FAULTY_HEAP_NAME of the build, "program" unless it says otherwise
//   FAULTY_HEAP_COUNT  a file; a line with the name and the number of calls is added at the end
#include "zelbasictypes/memory/heapseam.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#ifndef FAULTY_HEAP_NAME
#define FAULTY_HEAP_NAME "program"
#endif

namespace {

long first = 0; ///< the call that fails; 0 for none
bool onwards = false;
std::atomic<long> calls{0};

bool refuses() {
    const long call = ++calls;
    return first != 0 && (onwards ? call >= first : call == first);
}

void* allocate(std::size_t bytes) { return refuses() ? nullptr : std::malloc(bytes); }

void* reallocate(void* block, std::size_t bytes) {
    return refuses() ? nullptr : std::realloc(block, bytes);
}

void readWish(const char* wish) {
    std::istringstream words(wish);
    std::string name;
    std::string mode;
    long call = 0;
    words >> name >> mode >> call;
    if (name != FAULTY_HEAP_NAME) return;
    first = call;
    onwards = mode == "from";
}

void report() {
    std::ofstream(std::getenv("FAULTY_HEAP_COUNT"), std::ios::app)
        << FAULTY_HEAP_NAME << ' ' << calls << '\n';
}

bool install() {
    const char* wish = std::getenv("FAULTY_HEAP");
    const bool counts = std::getenv("FAULTY_HEAP_COUNT") != nullptr;
    if (wish) readWish(wish);
    if (counts) std::atexit(report);
    if (wish || counts) zelSetHeap({allocate, reallocate, nullptr, nullptr});
    return true;
}

const bool installed = install();

} // namespace
