// SPDX-License-Identifier: Apache-2.0
// The acyclic visitor on which every receiver of messages rests.
//
// A receiver derives from BaseVisitor and from one Visitor per class that it handles, so that
// neither messages nor receivers know the whole list of the other side.
#pragma once

#include <type_traits>

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
        if (auto* handler = dynamic_cast<Visitor<T, Result, true>*>(&visitor)) {
            return handler->visit(visited);
        }
        return CatchAll::template unknownVisitor<Result>(visited, visitor);
    }
};

} // namespace CADImport
