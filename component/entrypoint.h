// SPDX-License-Identifier: Apache-2.0
// The one function of a module that the host finds by name.
#pragma once

#include <cstdint>

class IZelComponent;

/// What the host looks for: the name of the function below, and its type.
inline constexpr const char* zelEntryPointName = "EntryPoint";
using ZelEntryPoint = std::int32_t (*)(std::int32_t* version, IZelComponent** component);

/// The version of the contract between host and module, that of every operation table here. A host
/// doesn't call a component that tells another.
inline constexpr std::int32_t zelContractVersion = 100;

/// Makes a new component, without a reference, and writes the version of the contract; returns 1.
/// When the component can't be made both become 0 and so does the result. A null `component`
/// gives 0 and leaves `*version` alone. No exception passes.
extern "C" std::int32_t EntryPoint(std::int32_t* version, IZelComponent** component);
