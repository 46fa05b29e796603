// SPDX-License-Identifier: Apache-2.0
// The strings' way to the host's text operations.
#pragma once

class IZelStrSupport;

/// The host's IZelStrSupport, or null. It is looked up once, at the first call, whether it is found
/// or not: a string operation before the host's start leaves the module with the plain forms. Any
/// thread may call; a call from within the lookup itself gets null. Borrowed.
IZelStrSupport* zelStrSupport();
