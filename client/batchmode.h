// SPDX-License-Identifier: Apache-2.0
// Whether the host wants no questions asked.
#pragma once

/// True when the setting "General/Show Batch Processing" is on or a macro runs. A host without the
/// services is not in batch mode.
bool isBatchMode();
