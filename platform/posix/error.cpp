// SPDX-License-Identifier: Apache-2.0
// System errors as the layer's own.
#include "platform/errornumber.h"

namespace platform {

Error lastError() { return errno == EDQUOT ? Error::noSpace : errorOf(errno); }

} // namespace platform
