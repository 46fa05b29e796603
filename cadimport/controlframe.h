// SPDX-License-Identifier: Apache-2.0
/// @file
/// Messages as the frames that go over a control connection: a 32-bit count, the wire name, the
/// body.
#pragma once

#include "cadimport/message.h"

#include <QByteArray>

#include <memory>

namespace CADImport {

QByteArray controlFrame(const Message& message);

/// The message in what a frame's count counts; null for a name that isn't known.
std::unique_ptr<Message> messageInFrame(const QByteArray& payload);

} // namespace CADImport
