// SPDX-License-Identifier: Apache-2.0
// Where messages go: records one after the other on a stream, counted by wire name.
#pragma once

#include "server/report.h"

#include <QDataStream>
#include <QString>

namespace server {

/// A message that a receiver would drop isn't written but reported.
class MessageSink {
public:
    MessageSink(QDataStream& stream, Report& report) : stream_(stream), report_(report) {}

    /// Whether the message was valid.
    template <class Message> bool write(const Message& message) {
        if (!message.isValid()) {
            report_.dropped(message.name().toStdString(), identifierOf(message),
                            "its values are out of range");
            return false;
        }
        stream_ << message.name();
        message.write(stream_);
        ++report_.written[message.name().toStdString()];
        return true;
    }

private:
    template <class Message> static int identifierOf(const Message& message) {
        if constexpr (requires { message.identifier; }) {
            return message.identifier;
        } else {
            return 0;
        }
    }

    QDataStream& stream_;
    Report& report_;
};

} // namespace server
