// SPDX-License-Identifier: Apache-2.0
// What of a finished model is incomplete, seen from its topology alone.
#pragma once

namespace host {

struct ImportSession;
struct ModelRecord;

/// Names in the session's list every edge without curve, every face without surface, every
/// reference to something that did not arrive, and what nothing refers to.
void noteLosses(const ModelRecord& model, ImportSession& session);

} // namespace host
