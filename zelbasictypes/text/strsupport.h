// SPDX-License-Identifier: Apache-2.0
/// @file
/// The strings' access to the host's text operations.
#pragma once

class IZelStrSupport;

/// The host's IZelStrSupport, borrowed, or null. It is looked up once, by the first call, whether
/// it is found or not; a string operation before the host has started therefore leaves the module
/// with the plain rules for good. Any thread may call. A call from within the lookup gets null.
IZelStrSupport* zelStrSupport();
