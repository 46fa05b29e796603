// SPDX-License-Identifier: Apache-2.0
// The other process of the tests: does what its first argument says.
#include "platform/channels.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "platform/process.h"
#include "platform/sync.h"

#include <QProcess>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

namespace {

void say(const char* text) {
    std::puts(text);
    std::fflush(stdout);
}

[[noreturn]] void stay() {
    for (;;) platform::sleep(1000);
}

int hold(const char* name) {
    const auto mutex = platform::createNamedMutex(name);
    if (!mutex || !mutex->wait(10'000)) return 1;
    say("held");
    stay();
}

int interrupted(const char*) {
    platform::onInterrupt([] {
        say("interrupted");
        platform::exitNow(9);
    });
    say("ready");
    stay();
}

int stubborn(const char*) {
    platform::onInterrupt([] { say("no"); });
    say("ready");
    stay();
}

int nameParent(const char*) {
    const std::uint32_t parent = platform::parentProcessId();
    const char* state = platform::isProcessAlive(parent) ? " is alive" : " has gone";
    say((std::to_string(parent) + state).c_str());
    return 0;
}

int watch(const char* path) {
    platform::onParentDeath([path] {
        if (std::FILE* mark = platform::openStream(path, "w")) std::fclose(mark);
        platform::exitNow(10);
    });
    say("ready");
    stay();
}

/// Another of this kind, which is ready. It is never destroyed, or Qt would end it.
QProcess* startAnother(const QStringList& words) {
    auto* process = new QProcess;
    const QString program = QString::fromStdU16String(platform::executablePath());
    process->start(QString(program).replace('\\', '/'), words);
    return process->waitForReadyRead(10'000) ? process : nullptr;
}

int die(const char* path) {
    if (!startAnother({"watch", path})) return 1;
    platform::exitNow(0);
}

int nest(const char*) {
    if (!startAnother({"stubborn"})) return 1;
    say("ready");
    stay();
}

/// Loses its child and says how many descendants it knows then, and once it has ended them.
int supervise(const char*) {
    platform::superviseDescendants();
    const platform::Offspring family;
    QProcess* const middle = startAnother({"nest"});
    if (!middle) return 1;
    middle->kill();
    middle->waitForFinished();
    say(std::to_string(family.running().size()).c_str());
    family.endAll();
    say(std::to_string(family.running().size()).c_str());
    return 0;
}

/// Says much, where an interrupt would leave a mark.
int talk(const char* path) {
    platform::onInterrupt([path] {
        if (std::FILE* mark = platform::openStream(path, "w")) std::fclose(mark);
    });
    for (int i = 0; i < 100; ++i) {
        say("word");
        std::fputs("word", stderr);
    }
    platform::sleep(200);
    return 0;
}

int useMemory(const char* limit) {
    if (!platform::limitMemory(std::strtoull(limit, nullptr, 10))) return 1;
    void* some = std::malloc(std::size_t{1} << 20);
    void* tooMuch = std::malloc(std::size_t{1} << 40);
    const bool held = some && !tooMuch;
    std::free(some);
    std::free(tooMuch);
    return held ? 0 : 2;
}

/// Only a negative depth, which never comes, would end it.
int recurse(volatile int* depth) {
    if (*depth < 0) return 0;
    volatile char room[4096];
    room[0] = static_cast<char>(*depth);
    *depth = *depth + 1;
    return recurse(depth) + room[0];
}

int crash(const char* kind) {
    const char* mark = std::strchr(kind, ':');
    platform::onCrash(
        "child", [] { return "testing"; }, mark ? mark + 1 : "", 8);
    const std::string what(kind, mark ? static_cast<std::size_t>(mark - kind) : std::strlen(kind));
    const std::map<std::string, int> kinds{
        {"fault", SIGFPE}, {"memory", SIGSEGV}, {"instruction", SIGILL}};
    if (what == "abort") std::abort();
    if (what == "stack") {
        int depth = 0;
        return recurse(&depth);
    }
    volatile std::uintptr_t nowhere = 16; // volatile, or the compiler sees through it
    if (what == "pointer") *reinterpret_cast<volatile int*>(nowhere) = 1;
    std::raise(kinds.at(what));
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    platform::prepareChannels();
    const std::map<std::string, int (*)(const char*)> jobs{
        {"hold", hold},         {"interrupted", interrupted},
        {"stubborn", stubborn}, {"watch", watch},
        {"die", die},           {"useMemory", useMemory},
        {"crash", crash},       {"nameParent", nameParent},
        {"nest", nest},         {"supervise", supervise},
        {"talk", talk}};
    if (count < 2 || !jobs.contains(arguments[1])) return 99;
    return jobs.at(arguments[1])(count > 2 ? arguments[2] : "");
}
