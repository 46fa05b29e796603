// SPDX-License-Identifier: Apache-2.0
// What the client says and asks through the host's simple dialog. Texts are keys in plain words
// and are translated. The service is looked up for each call and let go again.
#pragma once

#include <optional>

/// Shows a notice and waits for its end; false when the host has no dialog.
bool showNotice(const char* key);

/// Asks a question; true for yes, nothing when the host has no dialog.
std::optional<bool> askQuestion(const char* key);
