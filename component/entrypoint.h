// SPDX-License-Identifier: Apache-2.0
/// @file
/// The one function of a module that the host looks up.
#pragma once

#include <cstdint>

class IZelComponent;

/// The name under which a module exports its entry point.
inline constexpr const char* zelEntryPointName = "EntryPoint";
/// The type of the entry point.
using ZelEntryPoint = std::int32_t (*)(std::int32_t* version, IZelComponent** component);

/// The version of the contract between host and module, that of every operation table here. A host
/// doesn't call a component that tells another.
inline constexpr std::int32_t zelContractVersion = 100;

/// Makes a new component without a reference, stores the version of the contract (100), and returns
/// 1. When the component can't be made, both outputs and the result are 0. A null `component` gives
/// 0 and leaves `*version` alone. No exception leaves the function.
extern "C" std::int32_t EntryPoint(std::int32_t* version, IZelComponent** component);
