// SPDX-License-Identifier: Apache-2.0
// From facts to a reason, the most telling first.
#include "host/run/runfacts.h"

namespace host {
namespace {

std::string serverEnd(const RunFacts& facts) {
    return facts.serverEnd.empty() ? "the server came to its end" : facts.serverEnd;
}

std::string withoutModelFile(const RunFacts& facts) {
    if (facts.noServer) return "there is no model file " + facts.modelFile.toStdString();
    if (!facts.missingModel.isEmpty()) {
        return "there is no CAD file " + facts.missingModel.toStdString();
    }
    if (!facts.serverFailure.empty()) return serverEnd(facts) + ": " + facts.serverFailure;
    if (facts.live && !facts.modelNamed) return serverEnd(facts) + " and named no model file";
    if (facts.serverReported) return serverEnd(facts) + " without leaving a model file";
    const std::string words = facts.serverWords.empty() ? "" : "; it said: " + facts.serverWords;
    return serverEnd(facts) + " and left neither a model file nor a report" + words;
}

} // namespace

std::string reasonForNothing(const RunFacts& facts) {
    if (facts.interrupted) return "the import was stopped on request";
    if (!facts.startProblem.isEmpty()) {
        return "the server can't be started: " + facts.server.toStdString() + ": " +
               facts.startProblem.toStdString();
    }
    if (facts.importerMissing) return "there is no importer to give a model to";
    if (!facts.modelFileBytes || (facts.live && !facts.modelNamed)) return withoutModelFile(facts);
    if (*facts.modelFileBytes == 0) return "the model file is empty";
    return "the model file holds no model that can be read (" +
           std::to_string(*facts.modelFileBytes) + " bytes)";
}

} // namespace host
