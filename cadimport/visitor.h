// SPDX-License-Identifier: Apache-2.0
/// @file
/// The acyclic visitor that every receiver of messages builds on.
///
/// A receiver derives from BaseVisitor and from one Visitor for each class that it handles, so that
/// neither messages nor receivers know the complete list of the other side.
#pragma once

#include <cstddef>
#include <type_traits>
#include <typeinfo>

namespace CADImport {

/// The argument of `accept`. The Visitor bases of a receiver are found from it by a run-time cast.
class BaseVisitor {
public:
    virtual ~BaseVisitor() = default;
};

/// Handles the class T; `constVisit` tells whether it sees the object as const.
template <class T, class Result, bool constVisit> class Visitor {
public:
    virtual ~Visitor() = default;
    /// Handles one object, which is borrowed for the call.
    virtual Result visit(std::conditional_t<constVisit, const T&, T&> visited) = 0;
};

/// Casts a visitor to its handler of one class; null when it has none. The last result is cached
/// per thread: a receiver gets messages by the million, and a cast across its many bases takes
/// several times as long as decoding a small message. The layout of an object is the same for all
/// objects of its class, so a result holds for all of them.
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

/// The policy for a visitor that doesn't handle a class: nothing happens, silently.
struct DefaultCatchAll {
    /// The result for such a visitor.
    template <class Result, class T> static Result unknownVisitor(T&, BaseVisitor&) {
        return Result();
    }
};

/// The base of everything that can be visited. Only the form for const objects exists.
template <class Result, class CatchAll, bool constVisit> class BaseVisitable;

/// The form for const objects.
template <class Result, class CatchAll> class BaseVisitable<Result, CatchAll, true> {
public:
    virtual ~BaseVisitable() = default;
    /// Calls the visitor's handler for the class of this object.
    virtual Result accept(BaseVisitor& visitor) const = 0;

protected:
    /// The body of `accept` in the class T.
    template <class T> static Result acceptAs(const T& visited, BaseVisitor& visitor) {
        if (auto* handler = findHandler<Visitor<T, Result, true>>(visitor)) {
            return handler->visit(visited);
        }
        return CatchAll::template unknownVisitor<Result>(visited, visitor);
    }
};

} // namespace CADImport
