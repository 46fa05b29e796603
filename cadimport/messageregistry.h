// SPDX-License-Identifier: Apache-2.0
/// @file
/// Creates a message from its wire name.
///
/// All wire names and their registrations are in the source file of this header. Each message class
/// and createMessage() need something of it, so that the linker takes it, and with it all 26
/// classes, out of the static library into whatever uses any of them. Nothing has to be called.
#pragma once

#include "cadimport/message.h"

#include <QMap>
#include <QString>

namespace CADImport {

/// Makes an empty message, owned by the caller.
using MessageFactory = Message* (*)();
/// The factories by wire name.
using MessageRegistry = QMap<QString, MessageFactory>;

/// The registry of the module, made by the first call. It is filled during static initialisation
/// and only read afterwards, so that any thread may use it without a lock.
MessageRegistry& messageRegistry();

/// A new message of the class that `wireName` stands for, with its body read from `stream`; the
/// caller owns it. Null, with the stream unmoved, when the name isn't registered or there is no
/// memory. Whether the message is valid isn't checked.
[[nodiscard]] Message* createMessage(const MessageRegistry& registry, const QString& wireName,
                                     QDataStream& stream);

} // namespace CADImport
