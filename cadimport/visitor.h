// SPDX-License-Identifier: Apache-2.0
/// @file
/// The acyclic visitor on which every receiver of messages rests.
///
/// A receiver derives from BaseVisitor and from one Visitor per class that it handles, so that
/// neither messages nor receivers know the whole list of the other side.
#pragma once

#include <cstddef>
#include <type_traits>
#include <typeinfo>

namespace CADImport {

/// What `accept` takes; the Visitor bases of a receiver are found behind it by a run-time cast.
class BaseVisitor {
public:
    virtual ~BaseVisitor() = default;
};

/// Handles the class T; `constVisit` tells whether it sees the object as const.
template <class T, class Result, bool constVisit> class Visitor {
public:
    virtual ~Visitor() = default;
    virtual Result visit(std::conditional_t<constVisit, const T&, T&> visited) = 0;
};

/// The run-time cast of a visitor to the handler of one class, null when it has none. The last
/// answer is remembered per thread: a receiver takes messages by the million, and a cast across
/// its many bases costs several times what decoding a small message does. The parts of an object
/// lie where its class puts them, so an answer holds for all visitors of the class.
template <class Handler> Handler* findHandler(BaseVisitor& visitor) {
    struct Answer {
        const std::type_info* type;
        std::ptrdiff_t from; // which BaseVisitor, when the class has several
        std::ptrdiff_t to;
        bool found;
    };
    static thread_local Answer last{};
    auto* const whole = static_cast<char*>(dynamic_cast<void*>(&visitor));
    const std::ptrdiff_t from = reinterpret_cast<char*>(&visitor) - whole;
    if (last.type != &typeid(visitor) || last.from != from) {
        auto* const handler = dynamic_cast<Handler*>(&visitor);
        const std::ptrdiff_t to = handler ? reinterpret_cast<char*>(handler) - whole : 0;
        last = {&typeid(visitor), from, to, handler != nullptr};
    }
    return last.found ? reinterpret_cast<Handler*>(whole + last.to) : nullptr;
}

/// The policy for a visitor that doesn't handle a class: nothing happens, nothing is reported.
struct DefaultCatchAll {
    template <class Result, class T> static Result unknownVisitor(T&, BaseVisitor&) {
        return Result();
    }
};

/// Base of everything that can be visited. Only the form for const objects is used here.
template <class Result, class CatchAll, bool constVisit> class BaseVisitable;

template <class Result, class CatchAll> class BaseVisitable<Result, CatchAll, true> {
public:
    virtual ~BaseVisitable() = default;
    virtual Result accept(BaseVisitor& visitor) const = 0;

protected:
    /// What `accept` of the class T does: visits when the visitor handles T.
    template <class T> static Result acceptAs(const T& visited, BaseVisitor& visitor) {
        if (auto* handler = findHandler<Visitor<T, Result, true>>(visitor)) {
            return handler->visit(visited);
        }
        return CatchAll::template unknownVisitor<Result>(visited, visitor);
    }
};

} // namespace CADImport
