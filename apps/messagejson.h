// SPDX-License-Identifier: Apache-2.0
// Messages as JSON, for programs that want to look into a model file.
#pragma once

#include "cadimport/message.h"

#include <nlohmann/json.hpp>

namespace apps {

/// An object with "name", "valid" and the fields under their names, in the order of the wire.
/// Points and boxes are arrays; numbers that JSON doesn't know are null.
nlohmann::ordered_json messageJson(const CADImport::Message& message);

} // namespace apps
