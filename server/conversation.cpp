// SPDX-License-Identifier: Apache-2.0
// What the server says and does, message by message.
#include "server/conversation.h"

#include "cadimport/controlmessages.h"
#include "server/controlconnection.h"
#include "server/importrun.h"

#include <QFile>

namespace server {
namespace {

constexpr double clientLimitSeconds = 5;  ///< a client looks for its server ten times a second
constexpr double partingLimitSeconds = 3; ///< for a client to say that it has all

template <class T> const T* as(const CADImport::Message& message) {
    return dynamic_cast<const T*>(&message);
}

bool isEnd(const CADImport::Message& message) {
    return as<CADImport::FinishMessage>(message) || as<CADImport::EscapeMessage>(message);
}

class Conversation {
public:
    Conversation(Options& options, ControlConnection& client, std::ostream& messages)
        : options_(options), client_(client), messages_(messages) {}

    ExitCode hold() {
        client_.send(CADImport::OKMessage());
        if (!isAskedForModel()) return leave();
        const ExitCode code = runImport(options_, messages_);
        report(code);
        while (const auto message = client_.receive(partingLimitSeconds)) {
            if (isEnd(*message)) break;
        }
        return code;
    }

private:
    bool isAskedForModel() {
        while (const auto message = client_.receive(0)) {
            if (as<CADImport::SendNextModelMessage>(*message)) return true;
            if (isEnd(*message)) return false;
            if (const auto* words = as<CADImport::SetParameterMessage>(*message)) take(*words);
        }
        return false;
    }

    void take(const CADImport::SetParameterMessage& words) {
        try {
            takeWords(words.parameters, options_);
        } catch (const Failure& failure) {
            messages_ << "ignored: " << failure.what() << std::endl;
        }
    }

    ExitCode leave() {
        messages_ << "cad-importer-server: the client left without asking for a model" << std::endl;
        return ExitCode::stopped;
    }

    void report(ExitCode code) {
        if (code != ExitCode::ok) return client_.send(CADImport::EscapeMessage());
        QList<QString> words{"-ResultFile", options_.outputBaseName + ".direct"};
        const QString exported = options_.outputBaseName + ".igs";
        if (options_.igs && QFile::exists(exported)) words << "-ResultFile" << exported;
        client_.send(CADImport::SetParameterMessage(words));
        client_.send(CADImport::FinishMessage());
    }

    Options& options_;
    ControlConnection& client_;
    std::ostream& messages_;
};

} // namespace

ExitCode converse(Options options, std::ostream& messages) {
    ControlConnection client;
    if (client.accept(options.controlPort, clientLimitSeconds)) {
        return Conversation(options, client, messages).hold();
    }
    messages << "nobody came to the control socket" << std::endl;
    return runImport(options, messages);
}

} // namespace server
