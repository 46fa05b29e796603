// SPDX-License-Identifier: Apache-2.0
// The target's kernel objects over pthread. All of them share one lock and one condition, so that
// to release one and wait for another is a single step, as the target promises.
#include "platform/sync.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <thread>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

std::mutex& kernelLock() {
    static auto* const lock = new std::mutex;
    return *lock;
}

/// One object: its state is looked at and changed under the one lock.
template <class Base> class KernelObject : public Base {
public:
    bool wait(std::uint32_t milliseconds) override {
        std::unique_lock hold(kernelLock());
        return waitHeld(hold, milliseconds);
    }
    bool signal() override {
        const std::lock_guard hold(kernelLock());
        return signalHeld();
    }

protected:
    virtual bool tryTake() = 0;
    virtual bool give() = 0;

    bool waitHeld(std::unique_lock<std::mutex>& hold, std::uint32_t milliseconds) {
        const auto taken = [this] { return tryTake(); };
        if (milliseconds == infinite) {
            changed.wait(hold, taken);
            return true;
        }
        return changed.wait_until(hold, Clock::now() + std::chrono::milliseconds(milliseconds),
                                  taken);
    }
    bool signalHeld() {
        const bool given = give();
        changed.notify_all();
        return given;
    }

    std::condition_variable changed;
};

/// What signalAndWait needs of an object under the lock; named mutexes don't have it.
class Held {
public:
    virtual ~Held() = default;
    virtual bool signalLocked() = 0;
    virtual bool waitLocked(std::unique_lock<std::mutex>& hold) = 0;
};

template <class Base> class Local : public KernelObject<Base>, public Held {
public:
    bool signalLocked() override { return this->signalHeld(); }
    bool waitLocked(std::unique_lock<std::mutex>& hold) override {
        return this->waitHeld(hold, infinite);
    }
};

class Mutex : public Local<Waitable> {
    bool tryTake() override {
        const auto self = std::this_thread::get_id();
        if (depth && owner != self) return false;
        owner = self;
        ++depth;
        return true;
    }
    bool give() override {
        if (!depth || owner != std::this_thread::get_id()) return false;
        --depth;
        return true;
    }

    std::thread::id owner;
    std::uint32_t depth = 0;
};

class KernelEvent : public Local<Event> {
public:
    KernelEvent(bool staysSet, bool startsSet) : manual(staysSet), set(startsSet) {}

    void reset() override {
        const std::lock_guard hold(kernelLock());
        set = false;
    }

private:
    bool tryTake() override {
        if (!set) return false;
        set = manual;
        return true;
    }
    bool give() override { return set = true; }

    const bool manual;
    bool set;
};

class CountingSemaphore : public Local<Semaphore> {
public:
    CountingSemaphore(std::int32_t initial, std::int32_t limit) : count(initial), maximum(limit) {}

    bool raise(std::int32_t by) override {
        const std::lock_guard hold(kernelLock());
        if (by < 1 || by > maximum - count) return false;
        count += by;
        changed.notify_all();
        return true;
    }

private:
    bool tryTake() override {
        if (count == 0) return false;
        --count;
        return true;
    }
    bool give() override {
        if (count == maximum) return false;
        ++count;
        return true;
    }

    std::int32_t count;
    const std::int32_t maximum;
};

} // namespace

bool signalAndWait(Waitable& toSignal, Waitable& toWaitFor) {
    auto* first = dynamic_cast<Held*>(&toSignal);
    auto* second = dynamic_cast<Held*>(&toWaitFor);
    if (!first || !second) return false;
    std::unique_lock hold(kernelLock());
    return first->signalLocked() && second->waitLocked(hold);
}

std::unique_ptr<Waitable> makeMutex() { return std::make_unique<Mutex>(); }

std::unique_ptr<Event> makeEvent(bool manualReset, bool signalled) {
    return std::make_unique<KernelEvent>(manualReset, signalled);
}

std::unique_ptr<Semaphore> makeSemaphore(std::int32_t initial, std::int32_t maximum) {
    if (initial < 0 || maximum < 1 || initial > maximum) return nullptr;
    return std::make_unique<CountingSemaphore>(initial, maximum);
}

struct CriticalSection::Section {
    std::recursive_mutex lock;
};

CriticalSection::CriticalSection(std::int32_t spinCount) : spins(spinCount) {
    static_assert(sizeof(Section) <= sizeof room_);
    new (room_) Section;
}

CriticalSection::~CriticalSection() { section().~Section(); }

CriticalSection::Section& CriticalSection::section() {
    return *std::launder(reinterpret_cast<Section*>(room_));
}

void CriticalSection::enter() {
    for (std::int32_t turn = 0; turn < spins; ++turn) {
        if (section().lock.try_lock()) return;
    }
    section().lock.lock();
}

void CriticalSection::leave() { section().lock.unlock(); }

} // namespace platform
