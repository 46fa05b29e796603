// SPDX-License-Identifier: Apache-2.0
// Turns what the kernel throws into a text.
#pragma once

#include "host/measure/faceintegral.h"
#include "host/measure/quadrature.h"

#include <Standard_Failure.hxx>

#include <new>
#include <string>

namespace host {

/// What went wrong in `work`, as the end of a sentence; empty when nothing did. Takes what the
/// kernel throws and what our own measuring throws. Running out of memory is no matter of one call
/// and goes on as std::bad_alloc.
template <class Work> std::string kernelCall(const Work& work) {
    try {
        work();
        return {};
    } catch (const Standard_Failure& failure) {
        if (failure.IsKind("Standard_OutOfMemory")) throw std::bad_alloc();
        const char* message = failure.GetMessageString();
        const std::string kind = failure.DynamicType()->Name();
        return "the kernel gave up: " + (message && *message ? message : kind);
    } catch (const OpenBorder& failure) {
        return failure.what();
    } catch (const IntegrationLimit& failure) {
        return failure.what();
    }
}

} // namespace host
