// SPDX-License-Identifier: Apache-2.0
// What an import over a control connection needs beside the usual.
#pragma once

#include "client/itessoracadimporterclient.h"
#include "component/objects/iptr.h"

#include <QString>

#include <cstdint>

namespace host {

/// Makes the client's runs connected ones for as long as the answer lives; null when the client
/// can't have that.
IPtr<IZelUnknown> attachControlThread(ITessoraCADImporterClient& client, bool traceFrames);

/// A port of this machine that nobody uses; 0 when none is found. It is below 32768: a client takes
/// the ports of its option list for signed numbers of 16 bits.
std::uint16_t findControlPort();

/// The output base name of the first model file among files that a server named; empty without one.
KorString modelBaseIn(const std::list<KorString>& files);

} // namespace host
