// SPDX-License-Identifier: Apache-2.0
/// @file
/// From a wire name to a new message.
///
/// All wire names and their registrations stand in the source file of this header. Each message
/// class and createMessage need something of it, so that the linker takes it out of the static
/// library into whatever uses any of them, and all 26 classes with it: nothing has to be called.
#pragma once

#include "cadimport/message.h"

#include <QMap>
#include <QString>

namespace CADImport {

using MessageFactory = Message* (*)();
using MessageRegistry = QMap<QString, MessageFactory>;

/// The registry of the process, made by the first who asks and never deleted. Filled during static
/// initialisation and only read afterwards, hence without a lock.
MessageRegistry& messageRegistry();

/// A new message of the class that `wireName` stands for, its body read from `stream`; it belongs
/// to the caller. Null, with the stream left where it is, when the name isn't registered or there
/// is no memory. Doesn't ask whether the message is valid.
Message* createMessage(const MessageRegistry& registry, const QString& wireName,
                       QDataStream& stream);

} // namespace CADImport
